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

bool inputIsTerminal() {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) != 0;
}

std::size_t terminalWidth() {
  CONSOLE_SCREEN_BUFFER_INFO screen{};
  if (GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &screen) == 0) return 80;
  return static_cast<std::size_t>(screen.srWindow.Right - screen.srWindow.Left + 1);
}

}  // namespace vorlent
