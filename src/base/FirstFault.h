#pragma once

#include <exception>

namespace vorlent {

/// Lets several works run one after the other, whatever becomes of each, and raises the first fault
/// behind them.
class FirstFault {
 public:
  template <class Work>
  void of(const Work& work) {
    try {
      work();
    } catch (...) {
      if (!first_) first_ = std::current_exception();
    }
  }
  void raise() const {
    if (first_) std::rethrow_exception(first_);
  }

 private:
  std::exception_ptr first_;
};

}  // namespace vorlent
