#pragma once

#include <functional>
#include <string_view>
#include <utility>

namespace vorlent {

/// Where a console writes: whole lines. A line break inside a text is written `\n`, and other
/// control characters as printable() does.
class ConsoleOutput {
 public:
  /// Gets a line with its line feed.
  using Write = std::function<void(std::string_view line)>;

  explicit ConsoleOutput(Write write) : write_(std::move(write)) {}
  void line(std::string_view text);

 private:
  Write write_;
};

}  // namespace vorlent
