#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "platform/linux/UnixSimulatorBus.h"
#include "support/ScopedEnvironment.h"

namespace vorlent {

/// A client of the simulator interface that is not the server: reads and writes values one by one
/// over the real bus. Whatever fails throws.
class OffsetClient {
 public:
  explicit OffsetClient(const std::string& busFolder);

  template <class T>
  T read(std::uint32_t offset) {
    T value{};
    transfer({1, offset, sizeof(T), 0}, std::as_writable_bytes(std::span(&value, 1)));
    return value;
  }
  template <class T>
  void write(std::uint32_t offset, T value) {
    transfer({2, offset, sizeof(T)}, std::as_writable_bytes(std::span(&value, 1)));
  }

 private:
  /// A record of this head with the data behind it; the data become what stands there afterwards.
  void transfer(std::initializer_list<std::uint32_t> head, std::span<std::byte> data);

  ScopedEnvironment environment_;
  UnixSimulatorBus bus_;
  WindowHandle window_ = 0;
  MessageId message_ = 0;
  AtomId atom_ = 0;
  std::byte* block_ = nullptr;
};

}  // namespace vorlent
