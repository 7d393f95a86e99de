#pragma once

#include <array>

#include "base/RuntimeError.h"

namespace vorlent {

/// An array with the bounds Lowest..Highest; an index outside raises SubscriptOutOfRange.
template <class T, int Lowest, int Highest>
class IndexedArray {
 public:
  static constexpr int First = Lowest;
  static constexpr int Last = Highest;

  T& operator()(int index) { return elements_[position(index)]; }
  const T& operator()(int index) const { return elements_[position(index)]; }

 private:
  static std::size_t position(int index) {
    if (index < Lowest || index > Highest) throw RuntimeError(RuntimeError::SubscriptOutOfRange);
    return static_cast<std::size_t>(index - Lowest);
  }

  std::array<T, Highest - Lowest + 1> elements_{};
};

}  // namespace vorlent
