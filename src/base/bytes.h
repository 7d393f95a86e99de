#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

/// Little-endian values in raw bytes, at any alignment.
namespace vorlent {

static_assert(std::endian::native == std::endian::little);

template <class T>
T load(const void* from) {
  T value;
  std::memcpy(&value, from, sizeof value);
  return value;
}

template <class T>
void store(void* to, T value) {
  std::memcpy(to, &value, sizeof value);
}

/// As memcpy. Nearly all values of the simulator interface have eight, two, four bytes or one, and
/// a copy of a size that the compiler knows needs no call.
inline void copyBytes(void* to, const void* from, std::size_t size) {
  if (size == sizeof(std::uint64_t))
    std::memcpy(to, from, sizeof(std::uint64_t));
  else if (size == sizeof(std::uint16_t))
    std::memcpy(to, from, sizeof(std::uint16_t));
  else if (size == sizeof(std::uint32_t))
    std::memcpy(to, from, sizeof(std::uint32_t));
  else if (size == sizeof(std::uint8_t))
    std::memcpy(to, from, sizeof(std::uint8_t));
  else if (size != 0)
    std::memcpy(to, from, size);
}

}  // namespace vorlent
