#pragma once

#include <windows.h>

#include <stdexcept>

namespace vorlent {

/// A console of this process and of the programs that it starts meanwhile.
class OwnConsole {
 public:
  /// Without a terminal Wine has a console in name alone.
  OwnConsole() {
    if (GetConsoleWindow() == nullptr) {
      FreeConsole();
      AllocConsole();
    }
    SetConsoleCtrlHandler(letPass, TRUE);
  }
  ~OwnConsole() { SetConsoleCtrlHandler(letPass, FALSE); }
  OwnConsole(const OwnConsole&) = delete;
  OwnConsole& operator=(const OwnConsole&) = delete;

  /// Comes to this process, too, which lets it pass. Wine has no Ctrl-Break.
  void pressCtrlC() const {
    if (GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0) == 0) throw std::runtime_error("no console");
  }

 private:
  static BOOL WINAPI letPass(DWORD) { return TRUE; }
};

}  // namespace vorlent
