#include "bridge/PropertyServer.h"

#include <fmt/format.h>

#include <utility>

namespace vorlent {

PropertyServer::PropertyServer(PolledSockets& sockets, Endpoint server, Answer onAnswer)
    : sockets_(sockets), server_(std::move(server)), onAnswer_(std::move(onAnswer)) {}

void PropertyServer::advance(double now_s) {
  if (!connection_ || connection_->state() == PolledConnection::State::Closed) connect(now_s);
  if (!connection_ || connection_->state() != PolledConnection::State::Open) return;
  if (!open_) greet();
  take(connection_->receive());
}

void PropertyServer::connect(double now_s) {
  open_ = false;
  if (now_s < nextTry_s_) return;
  nextTry_s_ = now_s + Retry_s;
  partial_.clear();
  connection_ = sockets_.connect(server_);
}

/// In its raw mode the server answers a question with the bare value, and nothing else with
/// anything.
void PropertyServer::greet() {
  open_ = true;
  ++connections_;
  say("data");
  flush();
}

void PropertyServer::take(const std::string& text) {
  partial_ += text;
  for (std::size_t end; (end = partial_.find('\n')) != std::string::npos;) {
    std::string line = partial_.substr(0, end);
    partial_.erase(0, end + 1);
    while (!line.empty() && line.back() == '\r') line.pop_back();
    onAnswer_(line);
  }
  if (partial_.size() > LongestLine) partial_.clear();
}

void PropertyServer::set(const std::string& property, double value) {
  waiting_[property] = value;
  if (open_) flush();
}

void PropertyServer::ask(const std::string& property) {
  if (open_) say("get " + property);
}

void PropertyServer::flush() {
  for (const auto& [property, value] : std::exchange(waiting_, {}))
    say(fmt::format("set {} {:.9g}", property, value));
}

void PropertyServer::say(const std::string& line) {
  if (!connection_->send(line + "\r\n")) open_ = false;
}

}  // namespace vorlent
