#pragma once

#include <array>

#include "base/RuntimeError.h"

namespace vorlent {

/// An array with the bounds First..Last; an index outside raises SubscriptOutOfRange.
template <class T, int First, int Last>
class IndexedArray {
 public:
  static constexpr int first = First;
  static constexpr int last = Last;

  T& operator()(int index) { return elements_[position(index)]; }
  const T& operator()(int index) const { return elements_[position(index)]; }

 private:
  static std::size_t position(int index) {
    if (index < First || index > Last) throw RuntimeError(RuntimeError::SubscriptOutOfRange);
    return static_cast<std::size_t>(index - First);
  }

  std::array<T, Last - First + 1> elements_{};
};

}  // namespace vorlent
