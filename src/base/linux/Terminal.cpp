#include "base/Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace vorlent {

bool outputIsTerminal() {
  const char* kind = std::getenv("TERM");
  return isatty(STDOUT_FILENO) != 0 && kind != nullptr && std::string_view(kind) != "dumb";
}

bool inputIsTerminal() { return isatty(STDIN_FILENO) != 0; }

std::size_t terminalWidth() {
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return 80;
  return size.ws_col;
}

}  // namespace vorlent
