#include "display/DisplayClient.h"

#include <algorithm>
#include <utility>

#include "display/format.h"

namespace vorlent {
namespace {

constexpr int Tick_ms = 1000;
constexpr int ShortestSilence_s = 3;
constexpr int RecordsMissedInSilence = 3;
constexpr std::string_view StopMark = "Xterm";
constexpr std::string_view TuningAnswer = "tuning ";
constexpr std::string_view DroppedAnswer = "dropped ";
constexpr std::size_t LargestDatagram_bytes = 65507;  // UDP over IPv4 (RFC 768, RFC 791)

}  // namespace

DisplayClient::DisplayClient(EventLoop& loop, Network& network, Settings settings, Events events)
    : settings_(std::move(settings)),
      events_(std::move(events)),
      addresses_{settings_.server.address},
      greeting_(greeting(settings_.interval_ms, settings_.name)),
      socket_(network.createSocket()),
      timer_(loop.createTimer([this] { tick(); })) {
  addresses_.insert(addresses_.end(), settings_.otherAddresses.begin(),
                    settings_.otherAddresses.end());
  socket_->onDatagram(
      [this](const Endpoint& sender, const std::string& datagram) { receive(sender, datagram); });
  socket_->receiveUpTo(LargestDatagram_bytes);
  socket_->bind(0, "0.0.0.0");
}

void DisplayClient::start() {
  notify("greeting " + serverText());
  greet();
  timer_->start(Tick_ms);
}

bool DisplayClient::send(std::span<const Command> commands) {
  return send(settings_.server, commandMessage(commands));
}

void DisplayClient::askForTuning() { send(settings_.server, "tuning?"); }

void DisplayClient::askForDropped() { send(settings_.server, "dropped?"); }

void DisplayClient::tick() {
  ++silence_s_;
  if (state_ == State::Live && silence_s_ >= silenceLimit_s())
    leaveLive(State::Silent, "nothing has come from " + serverText() + " for " +
                                 std::to_string(silence_s_) +
                                 " s; greeting again until it answers");
  if (state_ == State::Calling)
    notify("no answer from " + serverText() + " yet; greeting again every second");
  if (state_ != State::Live) greet();
}

void DisplayClient::greet() {
  for (const std::string& address : addresses_) send({address, settings_.server.port}, greeting_);
}

bool DisplayClient::send(const Endpoint& receiver, const std::string& datagram) {
  try {
    socket_->send(receiver, datagram);
    return true;
  } catch (const RuntimeError& error) {
    notify("cannot send to " + endpointText(receiver) + ": " + error.description());
    return false;
  }
}

bool DisplayClient::isServer(const Endpoint& sender) const {
  return sender.port == settings_.server.port &&
         std::find(addresses_.begin(), addresses_.end(), sender.address) != addresses_.end();
}

void DisplayClient::receive(const Endpoint& sender, const std::string& datagram) {
  if (!isServer(sender)) {
    notify("a datagram from " + endpointText(sender) + " was dropped");
    return;
  }
  settings_.server = sender;
  silence_s_ = 0;
  if (datagram == StopMark)
    leaveLive(State::Ended, "the server ended the session; greeting again");
  else if (datagram.starts_with("Data "))
    receiveRecord(datagram);
  else
    receiveOther(datagram);
}

void DisplayClient::receiveRecord(const std::string& datagram) {
  try {
    const Record record = reader_.read(datagram);
    becomeLive();
    events_.onRecord(record);
  } catch (const RecordFault& fault) {
    notify("a record was dropped: " + printable(fault.what()));
  }
}

void DisplayClient::receiveOther(const std::string& datagram) {
  // Before its first poll a server has an empty record, and sends it.
  if (datagram.empty()) return;
  if (datagram.starts_with(TuningAnswer)) {
    const std::string fault = datagram.substr(TuningAnswer.size());
    if (!fault.empty())
      notify(fault + "; --name says on whose share, the shipped one is display's");
    return;
  }
  if (datagram.starts_with(DroppedAnswer)) {
    const std::string dropped = datagram.substr(DroppedAnswer.size());
    // Each time anew: the same command may be sent again.
    if (!dropped.empty()) events_.onNotice("the server did not carry out " + dropped);
    return;
  }
  const auto reply = readGreetingReply(datagram);
  if (!reply) {
    notify("neither a record nor a reply was dropped: \"" + printable(datagram.substr(0, 40)) +
           "\"");
    return;
  }
  reader_.decimalMark(reply->decimalMark);
  becomeLive();
  events_.onReply(*reply);
}

void DisplayClient::becomeLive() {
  if (state_ == State::Live) return;
  state_ = State::Live;
  notify("connected to " + serverText());
}

/// The decimal mark is forgotten: the server that answers next may be another one, and its reply
/// can be missed.
void DisplayClient::leaveLive(State state, const std::string& notice) {
  state_ = state;
  reader_.decimalMark("");
  notify(notice);
}

int DisplayClient::silenceLimit_s() const {
  return std::max(ShortestSilence_s, RecordsMissedInSilence * settings_.interval_ms / Tick_ms + 1);
}

void DisplayClient::notify(const std::string& notice) {
  if (notice == lastNotice_) return;
  lastNotice_ = notice;
  events_.onNotice(notice);
}

std::string DisplayClient::serverText() const { return endpointText(settings_.server); }

}  // namespace vorlent
