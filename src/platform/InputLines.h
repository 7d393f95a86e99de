#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace vorlent {

/// Lines of an input for a program that must not wait for them.
class InputLines {
 public:
  /// Of a longer one the rest is dropped.
  static constexpr std::size_t LongestLine_bytes = 4096;
  /// What is there now, perhaps nothing: an empty text. No text once the input has ended.
  using Read = std::function<std::optional<std::string>()>;

  explicit InputLines(Read read) : read_(std::move(read)) {}
  /// A whole line that is there now. What stands behind the last line end counts as one once the
  /// input has ended.
  std::optional<std::string> next();

 private:
  void readAvailable();

  Read read_;
  bool ended_ = false;
  std::string pending_;
};

/// Standard input, which no more than one reads. One source file for each operating system.
InputLines::Read readStandardInput();

}  // namespace vorlent
