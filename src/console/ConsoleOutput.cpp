#include "console/ConsoleOutput.h"

#include "base/printable.h"
#include "base/text.h"

namespace vorlent {

void ConsoleOutput::line(std::string_view text) {
  const std::string oneKind = replaced(replaced(text, "\r\n", "\n"), "\r", "\n");
  write_(printable(replaced(oneKind, "\n", "\\n")) + "\n");
}

}  // namespace vorlent
