#pragma once

#include <deque>
#include <string>
#include <string_view>

namespace vorlent {

/// The last lines of what a program says.
class LastWords {
 public:
  static constexpr std::size_t MostLines = 20;
  static constexpr std::size_t LongestLine_bytes = 400;

  /// Text as it comes, in pieces.
  void hear(std::string_view text);
  /// A line each, the one that was begun as well.
  std::string text() const;
  void forget();

 private:
  void finishLine();

  std::deque<std::string> lines_;
  std::string begun_;
};

}  // namespace vorlent
