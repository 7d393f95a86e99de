#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace vorlent {

/// Lines from a descriptor for a program that must not wait for them.
class InputLines {
 public:
  /// Of a longer one the rest is dropped.
  static constexpr std::size_t LongestLine_bytes = 4096;

  explicit InputLines(int descriptor) : descriptor_(descriptor) {}
  /// A whole line that is there now. What stands behind the last line end counts as one once the
  /// input has ended.
  std::optional<std::string> next();

 private:
  void readAvailable();

  int descriptor_;
  bool ended_ = false;
  std::string pending_;
};

}  // namespace vorlent
