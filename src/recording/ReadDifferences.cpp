#include "recording/ReadDifferences.h"

#include "base/bytes.h"

namespace vorlent::recorded {
namespace {

template <class T>
std::size_t subtract(char* value, const char* other) {
  store(value, static_cast<T>(load<T>(value) - load<T>(other)));
  return sizeof(T);
}

template <class T>
std::size_t add(char* value, const char* other) {
  store(value, static_cast<T>(load<T>(value) + load<T>(other)));
  return sizeof(T);
}

/// Hands each number of the reads to the step for its width.
template <class Step8, class Step16, class Step32, class Step64>
void eachNumber(const Request& request, Step8 step8, Step16 step16, Step32 step32, Step64 step64) {
  std::size_t at = 0;
  for (const Operation& operation : request) {
    if (operation.write) continue;
    if (operation.size_bytes == sizeof(std::uint64_t))
      at += step64(at);
    else if (operation.size_bytes == sizeof(std::uint32_t))
      at += step32(at);
    else if (operation.size_bytes == sizeof(std::uint16_t))
      at += step16(at);
    else
      for (std::uint32_t i = 0; i < operation.size_bytes; ++i) at += step8(at);
  }
}

}  // namespace

void ReadDifferences::take(std::uint64_t number, const Request& request, std::string& read) {
  std::string& last = last_[number];
  last.resize(read.size());
  std::string differences = read;
  char* to = differences.data();
  const char* from = last.data();
  eachNumber(
      request, [&](auto at) { return subtract<std::uint8_t>(to + at, from + at); },
      [&](auto at) { return subtract<std::uint16_t>(to + at, from + at); },
      [&](auto at) { return subtract<std::uint32_t>(to + at, from + at); },
      [&](auto at) { return subtract<std::uint64_t>(to + at, from + at); });
  last = std::move(read);
  read = std::move(differences);
}

void ReadDifferences::undo(std::uint64_t number, const Request& request, std::string& differences) {
  std::string& last = last_[number];
  last.resize(differences.size());
  char* to = differences.data();
  const char* from = last.data();
  eachNumber(
      request, [&](auto at) { return add<std::uint8_t>(to + at, from + at); },
      [&](auto at) { return add<std::uint16_t>(to + at, from + at); },
      [&](auto at) { return add<std::uint32_t>(to + at, from + at); },
      [&](auto at) { return add<std::uint64_t>(to + at, from + at); });
  last = differences;
}

}  // namespace vorlent::recorded
