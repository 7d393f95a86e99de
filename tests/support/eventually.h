#pragma once

#include <chrono>
#include <thread>

namespace vorlent {

/// Asks until the condition holds, at most for the limit. Returns whether it held.
template <class Condition>
bool eventually(Condition holds, std::chrono::seconds limit = std::chrono::seconds(10)) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!holds()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::yield();
  }
  return true;
}

}  // namespace vorlent
