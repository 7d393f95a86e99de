#include "base/Terminal.h"

#include <windows.h>

namespace vorlent {

// A console draws with control sequences only after it has been asked to.
bool outputIsTerminal() {
  const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD mode = 0;
  return GetConsoleMode(output, &mode) != 0 &&
         SetConsoleMode(output, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

}  // namespace vorlent
