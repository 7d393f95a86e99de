#include "console/ConsoleOutput.h"

#include "base/text.h"

namespace vorlent {

void ConsoleOutput::line(std::string_view text) {
  const std::string oneKind = replaced(replaced(text, "\r\n", "\n"), "\r", "\n");
  stream_ << replaced(oneKind, "\n", "\\n") << '\n' << std::flush;
}

}  // namespace vorlent
