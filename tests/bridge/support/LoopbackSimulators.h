#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "bridge/support/FakeFlightGear.h"
#include "bridge/support/FakeXPlane.h"
#include "platform/linux/Descriptor.h"

namespace vorlent {

/// A UDP socket on 127.0.0.1.
class LoopbackUdp {
 public:
  /// Port 0 is any.
  explicit LoopbackUdp(std::uint16_t port);
  std::uint16_t port() const;
  void send(std::uint16_t port, const std::string& bytes) const;
  /// The next datagram and the port that it came from; empty when none comes in time.
  std::string receive(int limit_ms, std::uint16_t* from = nullptr) const;
  const Descriptor& socket() const { return socket_; }

 private:
  Descriptor socket_;
};

/// FakeFlightGear behind real sockets, 40 frames a second, in a thread of its own.
class LoopbackFlightGear {
 public:
  /// Three ports from `firstPort` on, as vorlent-bridge has them.
  explicit LoopbackFlightGear(std::uint16_t firstPort);
  ~LoopbackFlightGear();
  LoopbackFlightGear(const LoopbackFlightGear&) = delete;
  LoopbackFlightGear& operator=(const LoopbackFlightGear&) = delete;

 private:
  void frame();
  void serveLines();

  FakeFlightGear fg_;
  std::uint16_t firstPort_;
  LoopbackUdp records_{0};
  LoopbackUdp controls_;
  Descriptor listening_;
  Descriptor connection_;
  std::string partial_;
  std::atomic<bool> ended_ = false;
  std::thread thread_;
};

/// FakeXPlane behind a real socket, 30 frames a second, in a thread of its own.
class LoopbackXPlane {
 public:
  LoopbackXPlane();
  ~LoopbackXPlane();
  LoopbackXPlane(const LoopbackXPlane&) = delete;
  LoopbackXPlane& operator=(const LoopbackXPlane&) = delete;

  std::uint16_t port() const { return socket_.port(); }

 private:
  void frame();

  FakeXPlane xp_;
  LoopbackUdp socket_{0};
  std::uint16_t bridge_ = 0;
  int frames_ = 0;
  std::atomic<bool> ended_ = false;
  std::thread thread_;
};

}  // namespace vorlent
