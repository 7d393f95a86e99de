#include "clientlink/ClientAdmission.h"

#include "base/TextLines.h"
#include "base/text.h"
#include "platform/EventLoop.h"
#include "platform/StatusLine.h"
#include "platform/UdpSocket.h"

namespace vorlent {
namespace {

constexpr std::uint32_t Pause_ms = 1000;

}  // namespace

ClientAdmission::ClientAdmission(EventLoop& eventLoop, Network& network, StatusLine& status,
                                 const std::string& clientNetworks, bool networkKeys)
    : eventLoop_(eventLoop), network_(network), status_(status), networkKeys_(networkKeys) {
  attached_ = trimmed(clientNetworks).empty();
  if (attached_) return;
  for (const std::string& entry : commaFields(clientNetworks)) {
    if (ranges_.add(trimmed(entry))) continue;
    if (!faults_.empty()) faults_ += ", ";
    faults_ += "\"" + trimmed(entry) + "\"";
  }
}

void ClientAdmission::tellFaults() const {
  if (!faults_.empty())
    status_.SetStatusText(1, "Vorlent.ini, [Platform], ClientNetworks: no address or network is " +
                                 faults_ + "; it lets nobody in");
}

/// An address can come with a network that was attached after the last look.
bool ClientAdmission::admits(const std::string& address, int slot) {
  if (!ranges_.contains(address) && attached_ && isDue(lastRead_ms_)) readAttachedNetworks();
  if (ranges_.contains(address)) return true;
  tellDropped("Client " + std::to_string(slot) + ": dropped a message from " + address +
              ", which ClientNetworks does not let in");
  return false;
}

void ClientAdmission::tellDropped(const std::string& what) {
  if (isDue(lastTold_ms_)) status_.SetStatusText(1, what);
}

void ClientAdmission::readAttachedNetworks() {
  ranges_ = {};
  ranges_.add("127.0.0.0/8");
  for (const std::string& attached : network_.attachedNetworks()) ranges_.add(attached);
}

/// Takes the moment down when it is.
bool ClientAdmission::isDue(std::optional<std::uint32_t>& last_ms) const {
  const std::uint32_t now_ms = eventLoop_.tickCount_ms();
  if (last_ms && now_ms - *last_ms < Pause_ms) return false;
  last_ms = now_ms;
  return true;
}

}  // namespace vorlent
