#include "base/Terminal.h"

#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace vorlent {

bool outputIsTerminal() {
  const char* kind = std::getenv("TERM");
  return isatty(STDOUT_FILENO) != 0 && kind != nullptr && std::string_view(kind) != "dumb";
}

}  // namespace vorlent
