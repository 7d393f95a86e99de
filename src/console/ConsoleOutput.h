#pragma once

#include <ostream>
#include <string_view>

namespace vorlent {

/// Where a console writes: whole lines, each flushed. A line break inside a text is written `\n`.
class ConsoleOutput {
 public:
  explicit ConsoleOutput(std::ostream& stream) : stream_(stream) {}
  void line(std::string_view text);

 private:
  std::ostream& stream_;
};

}  // namespace vorlent
