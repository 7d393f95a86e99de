#include "platform/linux/BusListener.h"

#include <sys/socket.h>
#include <sys/time.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

#include "base/RuntimeError.h"
#include "platform/linux/BusFolder.h"
#include "platform/linux/UnixAddress.h"

namespace vorlent {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::string_view RequestMessage = "FSASMLIB:IPC";
constexpr std::size_t LongestPacket = 512;
constexpr std::size_t MostClients = 64;
constexpr int MostInARow = 32;
constexpr timeval Lingering{0, 1000};

}  // namespace

std::unique_ptr<RequestListener> listenForRequests(const std::vector<std::string>& windowClasses,
                                                   BlockServer server) {
  return std::make_unique<BusListener>(busFolder(), windowClasses, std::move(server));
}

BusListener::BusListener(const std::string& folder, const std::vector<std::string>& windowClasses,
                         BlockServer server)
    : server_(std::move(server)) {
  for (const std::string& windowClass : windowClasses) windows_.emplace_back(folder, windowClass);
  watchAll();
}

void BusListener::endWhenReadable(int descriptor) {
  arrivals_ = descriptor;
  watchAll();
}

void BusListener::serve(int duration_ms) {
  const auto end = Clock::now() + std::chrono::milliseconds(duration_ms);
  for (auto now = Clock::now();; now = Clock::now()) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - now);
    const int ready =
        poll(watched_.data(), watched_.size(), std::max(0, static_cast<int>(left.count())));
    if (ready < 0 && errno != EINTR) throw RuntimeError(RuntimeError::PathAccess);
    if (ready <= 0) return;
    const bool arrived = arrivals_ >= 0 && watched_.back().revents != 0;
    // To wait for one client's next request would make the others wait, and what arrives.
    handleReady(ready == 1 && arrivals_ < 0);
    if (arrived || Clock::now() >= end) return;
  }
}

void BusListener::handleReady(bool onlyOne) {
  bool changed = false;
  std::size_t i = windows_.size();
  for (auto client = clients_.begin(); client != clients_.end(); ++i) {
    const bool keep = watched_[i].revents == 0 || attend(*client, onlyOne);
    changed |= !keep;
    client = keep ? std::next(client) : clients_.erase(client);
  }
  for (i = 0; i < windows_.size(); ++i)
    if (watched_[i].revents != 0) {
      accept(windows_[i].descriptor());
      changed = true;
    }
  if (changed) watchAll();
}

void BusListener::accept(int listening) {
  Descriptor socket(accept4(listening, nullptr, nullptr, SOCK_CLOEXEC));
  if (!socket || clients_.size() >= MostClients || !isOwnPeer(socket)) return;
  setsockopt(socket.number(), SOL_SOCKET, SO_RCVTIMEO, &Lingering, sizeof Lingering);
  clients_.emplace_back().socket = std::move(socket);
}

// A client sends its next request as soon as it has the answer to the last one, or not for long.
// Waiting for it in recv() costs a round trip one system call less than going through poll().
bool BusListener::attend(Client& client, bool alone) {
  Outcome outcome = answer(client, MSG_DONTWAIT);
  for (int i = 1; alone && i < MostInARow && outcome == Outcome::Answered; ++i)
    outcome = answer(client, 0);
  return outcome != Outcome::Gone;
}

BusListener::Outcome BusListener::answer(Client& client, int receiveFlags) {
  std::array<char, LongestPacket> packet;
  const ssize_t length =
      recv(client.socket.number(), packet.data(), packet.size(), MSG_TRUNC | receiveFlags);
  if (length < 0 && (errno == EAGAIN || errno == EINTR)) return Outcome::NothingThere;
  if (length <= 0) return Outcome::Gone;
  const auto received = static_cast<std::size_t>(length);
  const std::int32_t reply =
      received > packet.size() ? 0 : replyTo(client, {packet.data(), received});
  // A client that sends without reading its answers would fill its queue: it is let go.
  const ssize_t sent =
      send(client.socket.number(), &reply, sizeof reply, MSG_NOSIGNAL | MSG_DONTWAIT);
  return sent == sizeof reply ? Outcome::Answered : Outcome::Gone;
}

std::int32_t BusListener::replyTo(Client& client, std::string_view packet) {
  const std::size_t lineEnd = packet.find('\n');
  if (lineEnd == std::string_view::npos || packet.substr(0, lineEnd) != RequestMessage) return 0;
  const std::span<std::byte> block = client.block.open(packet.substr(lineEnd + 1), BlockSize);
  if (block.empty()) return 0;
  const std::int32_t reply = server_(block);
  return client.block.isIntact() ? reply : 0;
}

void BusListener::watchAll() {
  watched_.clear();
  for (const WindowSocket& window : windows_) watched_.push_back({window.descriptor(), POLLIN, 0});
  for (const Client& client : clients_) watched_.push_back({client.socket.number(), POLLIN, 0});
  if (arrivals_ >= 0) watched_.push_back({arrivals_, POLLIN, 0});
}

}  // namespace vorlent
