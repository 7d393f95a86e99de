#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vorlent {

/// A page on a terminal with ECMA-48 control sequences, redrawn in place, with a line under it on
/// which the user types. What stood on the terminal before comes back when the object goes.
class Screen {
 public:
  using Write = std::function<void(std::string_view)>;

  explicit Screen(Write write);
  ~Screen();
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  /// Draws over the lines that stand there, the first one inverse in an alarm. The cursor stays
  /// where the user types.
  void draw(const std::vector<std::string>& lines, bool alarm);
  /// Takes away what has been typed and puts the cursor behind the prompt of an empty line, the one
  /// with this number (the first is 1).
  void prompt(std::size_t lineNumber, std::string_view text);

 private:
  Write write_;
};

}  // namespace vorlent
