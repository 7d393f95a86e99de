#pragma once

#include <bit>
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

}  // namespace vorlent
