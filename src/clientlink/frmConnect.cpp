#include "clientlink/frmConnect.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "autoflight/clsAfds.h"
#include "base/RuntimeError.h"
#include "base/numbers.h"
#include "base/text.h"
#include "core/Server.h"
#include "core/frmMainClient.h"
#include "core/modMain.h"
#include "extras/SoundEvents.h"
#include "input/triples.h"
#include "platform/SimulatorBus.h"
#include "simlink/clsFSUIPC.h"

namespace vorlent {
namespace {

constexpr std::string_view Greeting = "Connection on";
constexpr int DefaultInterval_ms = 100;
/// "Connection", "on" and two that the server has no use for.
constexpr int SkippedTokens = 4;
constexpr std::int16_t FirstVersionWithoutPausePulse = 2;
/// Of a command message: "p" and a blank, whatever stands in its place.
constexpr std::size_t CommandHead = 2;

}  // namespace

frmConnect::frmConnect(Server& server, int index)
    : Form("frmConnect(" + std::to_string(index) + ")"),
      server_(server),
      Winsock_(server.ports.network.createSocket()),
      TimerConn_(server.ports.eventLoop, DefaultInterval_ms,
                 server.failureDomain.guarded([this] { timerTick(); })) {
  Winsock_->onDatagram([this](const Endpoint& sender, const std::string& text) {
    server_.failureDomain.run([&] { dataArrival(sender, text); });
  });
}

void frmConnect::dataArrival(const Endpoint& sender, const std::string& text) {
  if (!belongsToSession(sender)) return;
  server_.store.ReceivedText = text.substr(0, UdpSocket::MaxReceived_bytes);
  client_ = sender;
  try {
    handleDatagram();
  } catch (const RuntimeError& error) {
    handleSocketError(error.number(), error.description());
  }
}

bool frmConnect::belongsToSession(const Endpoint& sender) {
  if (!Started_ || sender.address == client_.address) return true;
  server_.mainClient->SetStatusText(1, "Client " + std::to_string(MyID_) + " is " +
                                           client_.address + ", dropped a message from " +
                                           sender.address);
  return false;
}

void frmConnect::handleDatagram() {
  const std::string text = server_.store.ReceivedText;
  server_.mainClient->SetStatusText(1, text);
  if (!Started_ && text.starts_with(Greeting)) {
    greet(text);
    Started_ = true;
  }
  if (text.starts_with('p')) walkCommands(text);
}

void frmConnect::greet(std::string text) {
  frmMainClient& mainClient = *server_.mainClient;
  mainClient.SetStatusText(2, text);
  mainClient.SetStatusText(1, text);
  Caption(text + " " + std::to_string(MyID_ + server_.store.BasePort));
  for (int token = 0; token < SkippedTokens; ++token) GetNext(text, " ");
  mainClient.SetStatusText(1, "Call from client " + std::to_string(MyID_));
  TimerConn_.Interval(toInt32(numberOf(GetNext(text, " "))));
  FmcName_ = GetNext(text, " ");
  readPlan();
  mainClient.FmcName(FmcName_);
  mainClient.cmdSound.Enabled(false);
  mainClient.txtClients.Enabled(false);
  server_.fsuipc->ReadBytes(0x0AEC, 1, 1);
  server_.store.EngineCount = server_.fsuipc->FsBytes[1];
  if (!server_.main->AnyClientUp()) bringUpServer();
  SendFsData(greetingReply());
  IsUp_ = true;
  TimerConn_.Enabled(true);
  mainClient.startPollTimer();
}

/// A name that is none of a machine could lead the path out of the client's share.
void frmConnect::readPlan() {
  if (isHostName(FmcName_))
    server_.afds->ReadAircraftConfig("\\\\" + FmcName_ + "\\Tarnwick\\FMS\\plan.cfg");
  else
    server_.mainClient->SetStatusText(
        1, "Client " + std::to_string(MyID_) + " gave no machine name, its plan is not read");
}

/// What the first client of all sets going.
void frmConnect::bringUpServer() {
  frmMainClient& mainClient = *server_.mainClient;
  SimulatorBus& bus = server_.ports.simulatorBus;
  const auto window = server_.store.FsWindow;
  bus.showWindow(window, mainClient.Settings(3).Checked());
  if (mainClient.Settings(2).Checked()) bus.bringToFront(window);
  server_.soundEvents->startSounds();
  server_.store.CycleRunning = true;
  if (server_.store.FsVersionCode < FirstVersionWithoutPausePulse) mainClient.startPausePulse();
}

std::string frmConnect::greetingReply() const {
  const modPublic& v = server_.store;
  const std::string version = server_.fsuipc->XPlane() != 0 ? "1" : std::to_string(v.FsVersionCode);
  return version + "1\\" + server_.mainClient->cboDir.Text() + "\\" +
         std::to_string(v.EngineCount) + "\\" + std::to_string(v.FlapIncrement) + "\\" + v.sDecimal;
}

void frmConnect::walkCommands(std::string_view text) {
  text.remove_prefix(std::min(text.size(), CommandHead));
  carryOutTriples(*server_.commands, text, server_.store.sDecimal);
}

/// A session that ends says so twice, as "Xterm" then is the record, also the other sessions' until
/// the next poll.
void frmConnect::timerTick() {
  std::string& record = server_.store.DataRecord;
  if (!IsUp_) {
    record = "Xterm";
    SendFsData(record);
    TimerConn_.Enabled(false);
    Started_ = false;
  }
  SendFsData(record);
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
    server_.log.WriteLog("SckWouldblock " + std::to_string(number));
  if (number == SocketError::WouldBlock) server_.log.WriteLog("10035 " + std::to_string(number));
}

}  // namespace vorlent
