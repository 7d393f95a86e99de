#include "bridge/support/FakeSockets.h"

#include <utility>

#include "base/RuntimeError.h"

namespace vorlent {

class FakeSockets::Socket : public PolledDatagrams {
 public:
  Socket(std::shared_ptr<Waiting> waiting, std::shared_ptr<std::vector<Sent>> sent,
         std::uint16_t port)
      : waiting_(std::move(waiting)), sent_(std::move(sent)), port_(port) {}

  std::optional<Datagram> receive() override {
    auto& queue = (*waiting_)[port_];
    if (queue.empty()) return std::nullopt;
    Datagram first = std::move(queue.front());
    queue.pop_front();
    return first;
  }
  bool send(const Endpoint& receiver, std::string_view bytes) override {
    sent_->push_back({receiver, std::string(bytes)});
    return true;
  }

 private:
  std::shared_ptr<Waiting> waiting_;
  std::shared_ptr<std::vector<Sent>> sent_;
  std::uint16_t port_;
};

class FakeSockets::Connection : public PolledConnection {
 public:
  explicit Connection(std::shared_ptr<Line> line) : line_(std::move(line)) {}

  State state() override { return line_->state; }
  std::string receive() override { return std::exchange(line_->toBridge, {}); }
  bool send(std::string_view bytes) override {
    if (line_->state != State::Open) return false;
    line_->fromBridge += bytes;
    return true;
  }

 private:
  std::shared_ptr<Line> line_;
};

std::unique_ptr<PolledDatagrams> FakeSockets::datagrams(const std::string&, std::uint16_t port) {
  if (taken.contains(port)) throw RuntimeError(SocketError::AddressInUse, "the port is taken");
  return std::make_unique<Socket>(waiting_, sent_, port);
}

std::unique_ptr<PolledDatagrams> FakeSockets::group(const std::string&, std::uint16_t port) {
  if (!multicast) throw RuntimeError(RuntimeError::PathAccess, "no multicast here");
  return std::make_unique<Socket>(waiting_, sent_, port);
}

std::unique_ptr<PolledConnection> FakeSockets::connect(const Endpoint&) {
  ++connections;
  line = std::make_shared<Line>();
  if (!servesLines) line->state = PolledConnection::State::Closed;
  return std::make_unique<Connection>(line);
}

}  // namespace vorlent
