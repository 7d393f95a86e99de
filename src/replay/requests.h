#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "recording/Event.h"

/// What the recorded messages to the simulator hold.
namespace vorlent {

/// Calls `take` with the offset and the bytes of each read that was answered.
template <class Take>
void forEachRead(const recorded::Exchanged& exchanged, const Take& take) {
  const std::span<const std::byte> all = std::as_bytes(std::span(exchanged.read));
  std::size_t at = 0;
  for (const recorded::Operation& operation : *exchanged.request) {
    if (operation.write) continue;
    if (operation.size_bytes > all.size() - at) return;
    take(operation.offset, all.subspan(at, operation.size_bytes));
    at += operation.size_bytes;
  }
}

/// More reads than a single value takes, or the start: the request of a poll.
inline bool isPoll(const recorded::Request& request) {
  constexpr int MostReadsOfAValue = 4;
  return std::count_if(request.begin(), request.end(),
                       [](const auto& operation) { return !operation.write; }) > MostReadsOfAValue;
}

}  // namespace vorlent
