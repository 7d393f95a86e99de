#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/RuntimeError.h"

namespace vorlent {

/// Controls of one name, told apart by their index: "optAxes(0)" and so on. An index outside raises
/// SubscriptOutOfRange.
template <class T>
class ControlArray {
 public:
  /// `rest` is what each control's constructor takes behind its name.
  template <class... Rest>
  ControlArray(const std::string& name, int count, const Rest&... rest) {
    for (int i = 0; i < count; ++i)
      controls_.push_back(std::make_unique<T>(name + "(" + std::to_string(i) + ")", rest...));
  }

  int count() const { return static_cast<int>(controls_.size()); }
  T& operator()(int index) { return *controls_[position(index)]; }
  const T& operator()(int index) const { return *controls_[position(index)]; }

 private:
  std::size_t position(int index) const {
    if (index < 0 || index >= count()) throw RuntimeError(RuntimeError::SubscriptOutOfRange);
    return static_cast<std::size_t>(index);
  }

  std::vector<std::unique_ptr<T>> controls_;
};

}  // namespace vorlent
