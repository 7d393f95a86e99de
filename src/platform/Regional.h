#pragma once

#include <string>

namespace vorlent {

class Regional {
 public:
  virtual ~Regional() = default;
  /// The decimal mark of the user's settings; empty when none is set.
  virtual std::string decimalSeparator() = 0;
};

}  // namespace vorlent
