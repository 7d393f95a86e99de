#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "base/RuntimeError.h"
#include "base/bytes.h"

namespace vorlent {

/// The simulator's state as the interface shows it: 65536 bytes, little-endian values at numbered
/// offsets of any alignment. Every access outside raises SubscriptOutOfRange and changes nothing.
class OffsetMemory {
 public:
  static constexpr std::size_t Size = 65536;

  static constexpr bool contains(std::size_t offset, std::size_t size) {
    return size <= Size && offset <= Size - size;
  }

  void copyOut(std::size_t offset, std::span<std::byte> to) const {
    check(offset, to.size());
    copyBytes(to.data(), bytes_.data() + offset, to.size());
  }
  void copyIn(std::size_t offset, std::span<const std::byte> from) {
    check(offset, from.size());
    copyBytes(bytes_.data() + offset, from.data(), from.size());
  }

  template <class T>
  T read(std::size_t offset) const {
    std::array<std::byte, sizeof(T)> raw;
    copyOut(offset, raw);
    return load<T>(raw.data());
  }

  template <class T>
  void write(std::size_t offset, T value) {
    std::array<std::byte, sizeof(T)> raw;
    store(raw.data(), value);
    copyIn(offset, raw);
  }

 private:
  static void check(std::size_t offset, std::size_t size) {
    if (!contains(offset, size)) throw RuntimeError(RuntimeError::SubscriptOutOfRange);
  }

  std::array<std::byte, Size> bytes_{};
};

}  // namespace vorlent
