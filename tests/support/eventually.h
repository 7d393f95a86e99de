#pragma once

#include <chrono>
#include <thread>

namespace vorlent {

/// Asks until the condition holds, at most 10 seconds long. Returns whether it held.
template <class Condition>
bool eventually(Condition holds) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (!holds()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::yield();
  }
  return true;
}

}  // namespace vorlent
