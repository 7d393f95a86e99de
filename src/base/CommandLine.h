#pragma once

#include <span>
#include <string>
#include <string_view>

namespace vorlent {

/// Raises InvalidCall with these words.
[[noreturn]] void refuseArgument(const std::string& why);

/// A program's arguments, taken one by one.
class CommandLine {
 public:
  explicit CommandLine(std::span<const std::string_view> arguments) : rest_(arguments) {}

  bool empty() const { return rest_.empty(); }
  /// There must be one.
  std::string_view next();
  /// What stands behind an option; raises InvalidCall when nothing does.
  std::string_view valueOf(std::string_view option);

 private:
  std::span<const std::string_view> rest_;
};

}  // namespace vorlent
