#include "clientlink/frmConnect.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "base/RuntimeError.h"
#include "base/numbers.h"
#include "base/text.h"
#include "clientlink/ClientAdmission.h"
#include "commands/commands.h"
#include "commands/triples.h"
#include "platform/FailureDomain.h"
#include "platform/StatusLine.h"
#include "simlink/clsFSUIPC.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

constexpr std::string_view Greeting = "Connection on";
/// Of a display that wants to know whether the autopilot is tuned.
constexpr std::string_view TuningQuestion = "tuning?";
/// Of a display that wants to know what of its last message of commands was not carried out.
constexpr std::string_view DroppedQuestion = "dropped?";
constexpr int DefaultInterval_ms = 100;
/// "Connection", "on" and two that the server has no use for.
constexpr int SkippedTokens = 4;
/// Of a command message: "p" and a blank, whatever stands in its place.
constexpr std::size_t CommandHead = 2;

}  // namespace

frmConnect::frmConnect(const SessionContext& context, int index)
    : Form("frmConnect(" + std::to_string(index) + ")"),
      context_(context),
      Winsock_(context.network.createSocket()),
      TimerConn_(context.eventLoop, DefaultInterval_ms,
                 context.failureDomain.guarded([this] { timerTick(); })) {
  Winsock_->onDatagram([this](const Endpoint& sender, const std::string& text) {
    context_.failureDomain.run([&] { dataArrival(sender, text); });
  });
}

void frmConnect::bind(std::uint16_t port, const std::string& address) {
  Port_ = 0;
  Winsock_->close();
  Winsock_->bind(port, address);
  Port_ = port;
}

void frmConnect::dataArrival(const Endpoint& sender, const std::string& text) {
  if (!context_.admission.admits(sender.address, MyID_) || !belongsToSession(sender)) return;
  context_.store.ReceivedText = text.substr(0, UdpSocket::MaxReceived_bytes);
  client_ = sender;
  lastHeard_ms_ = context_.eventLoop.tickCount_ms();
  handled([this] { handleDatagram(); });
}

void frmConnect::handled(const std::function<void()>& work) {
  try {
    work();
  } catch (const RuntimeError& error) {
    dropped_ = "the rest of the message, " + error.description();
    handleSocketError(error.number(), error.description());
  }
}

bool frmConnect::belongsToSession(const Endpoint& sender) {
  if (!Started_ || sender.address == client_.address) return true;
  context_.admission.tellDropped("Client " + std::to_string(MyID_) + " is " + client_.address +
                                 ", dropped a message from " + sender.address);
  return false;
}

void frmConnect::handleDatagram() {
  const std::string text = context_.store.ReceivedText;
  if (Started_ && text == TuningQuestion)
    return SendFsData("tuning " + context_.autoflight.afds->TuningFault());
  if (Started_ && text == DroppedQuestion) return SendFsData("dropped " + dropped_);
  context_.status.SetStatusText(1, text);
  if (!Started_ && text.starts_with(Greeting)) {
    greet(text);
    Started_ = true;
  }
  if (!text.starts_with('p')) return;
  dropped_.clear();
  walkCommands(text.substr(std::min(text.size(), CommandHead)));
}

void frmConnect::greet(std::string text) {
  StatusLine& status = context_.status;
  status.SetStatusText(2, text);
  status.SetStatusText(1, text);
  Caption(text + " " + std::to_string(MyID_ + context_.store.BasePort));
  for (int token = 0; token < SkippedTokens; ++token) GetNext(text, " ");
  status.SetStatusText(1, "Call from client " + std::to_string(MyID_));
  TimerConn_.Interval(toInt32(numberOf(GetNext(text, " "))));
  FmcName_ = GetNext(text, " ");
  readPlan();
  context_.store.FmcName = FmcName_;
  context_.host.clientGreeted();
  context_.link.ReadBytes(0x0AEC, 1, 1);
  context_.store.EngineCount = context_.link.FsBytes[1];
  if (!context_.host.AnyClientUp()) context_.host.bringUpServer();
  SendFsData(greetingReply());
  IsUp_ = true;
  TimerConn_.Enabled(true);
  context_.host.startPollTimer();
}

/// A name that is none of a machine could lead the path out of the client's share.
void frmConnect::readPlan() {
  if (isHostName(FmcName_))
    context_.autoflight.afds->ReadAircraftConfig("\\\\" + FmcName_ + "\\Tarnwick\\FMS\\plan.cfg");
  else
    context_.status.SetStatusText(
        1, "Client " + std::to_string(MyID_) + " gave no machine name, its plan is not read");
}

std::string frmConnect::greetingReply() const {
  const modPublic& v = context_.store;
  const std::string version = context_.link.XPlane() != 0 ? "1" : std::to_string(v.FsVersionCode);
  return version + "1\\" + context_.host.cockpit() + "\\" + std::to_string(v.EngineCount) + "\\" +
         std::to_string(v.FlapIncrement) + "\\" + v.sDecimal;
}

/// Each command may cost a round trip to the simulator, so that a datagram of many takes more than
/// its turn: the rest of it waits then, and the client's next datagrams behind it.
void frmConnect::walkCommands(std::string_view text) {
  while (const auto triple = cutTriple(text, context_.store.sDecimal)) {
    carryOutOfClient(*triple);
    if (text.empty() || !Winsock_->turnIsOver()) continue;
    Winsock_->continueLater([this, rest = std::string(text)] {
      context_.failureDomain.run([&] { handled([&] { walkCommands(rest); }); });
    });
    return;
  }
}

void frmConnect::carryOutOfClient(const Triple& triple) {
  const std::string code = std::to_string(triple.code);
  if (isKeystroke(triple) && !context_.admission.networkKeys()) {
    dropped_ = "keystroke code " + code + ", which NetworkKeys does not let clients send";
    return context_.admission.tellDropped("Client " + std::to_string(MyID_) + " sent " + dropped_);
  }
  if (!isCommand(triple.kind, triple.code))
    dropped_ = std::string(triple.kind) + " " + code + ", which is no command";
  carryOut(*context_.commands, triple);
}

/// A session that ends says so twice, as "Xterm" then is the record, also the other sessions' until
/// the next poll.
void frmConnect::timerTick() {
  std::string& record = context_.store.DataRecord;
  if (!IsUp_) {
    record = "Xterm";
    SendFsData(record);
    TimerConn_.Enabled(false);
    Started_ = false;
  }
  SendFsData(record);
}

void frmConnect::end() {
  if (!Started_) return;
  IsUp_ = false;
  timerTick();
}

void frmConnect::SendFsData(const std::string& data) {
  try {
    Winsock_->send(client_, data);
  } catch (const RuntimeError& error) {
    handleSocketError(error.number(), error.description());
  }
}

void frmConnect::handleSocketError(int number, const std::string& description) {
  if (description == "SckWouldBlock")
    context_.status.WriteLog("SckWouldblock " + std::to_string(number));
  if (number == SocketError::WouldBlock)
    context_.status.WriteLog("10035 " + std::to_string(number));
}

}  // namespace vorlent
