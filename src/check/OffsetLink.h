#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "platform/SimulatorBus.h"

namespace vorlent {

/// The client's end of the simulator interface, reduced to one value a request: what the check
/// needs, written apart from the server's own end.
class OffsetLink {
 public:
  using Sleep = std::function<void(int duration_ms)>;

  /// Waits up to 2.5 seconds until the other side tells its version and its simulator. Raises
  /// RuntimeError, with a sentence for the user, when there is none or it is no such side.
  OffsetLink(SimulatorBus& bus, const Sleep& sleep);
  ~OffsetLink();
  OffsetLink(const OffsetLink&) = delete;
  OffsetLink& operator=(const OffsetLink&) = delete;

  /// Whether the request was accepted. Both raise RuntimeError when no answer comes at all.
  bool read(std::uint32_t offset, std::span<std::byte> data);
  bool write(std::uint32_t offset, std::span<const std::byte> data);

  struct Extent {
    std::uint32_t offset;
    std::uint32_t size;
  };
  /// The same for many reads in one request, whose data are not looked at.
  bool readTogether(std::span<const Extent> reads);

  std::uint32_t version() const { return version_; }
  std::uint32_t simulatorNumber() const { return simulator_ & 0xFFFF; }

 private:
  void open();
  void identify(const Sleep& sleep);
  void close();
  bool send();

  SimulatorBus& bus_;
  WindowHandle window_ = 0;
  MessageId message_ = 0;
  AtomId atom_ = 0;
  BlockHandle block_ = 0;
  std::byte* view_ = nullptr;
  std::uint32_t version_ = 0;
  std::uint32_t simulator_ = 0;
};

}  // namespace vorlent
