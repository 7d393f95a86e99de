#pragma once

#include <cstddef>
#include <cstdint>
#include <thread>

#include "platform/linux/Descriptor.h"

namespace vorlent {

/// A way to a server on loopback that lets a number of the server's bytes through, counted anew for
/// each connection, and then breaks or says nothing any more.
class FailingWire {
 public:
  enum class End { Breaks, IsSilent };

  FailingWire(std::uint16_t serverPort, std::size_t passed_bytes, End end);
  ~FailingWire();
  FailingWire(const FailingWire&) = delete;
  FailingWire& operator=(const FailingWire&) = delete;

  std::uint16_t port() const { return port_; }

 private:
  void serve();
  void carry(const Descriptor& client, const Descriptor& server) const;

  std::uint16_t serverPort_;
  std::size_t passed_bytes_;
  End end_;
  Descriptor listening_;
  std::uint16_t port_;
  Descriptor stop_;  ///< readable when the test is over
  std::thread thread_;
};

}  // namespace vorlent
