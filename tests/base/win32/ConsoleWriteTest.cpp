#include <fcntl.h>
#include <gtest/gtest.h>
#include <io.h>
#include <windows.h>

#include <cstdint>
#include <stdexcept>
#include <string>

#include "base/BackgroundWrite.h"

namespace vorlent {
namespace {

/// A console, ours or a new one, and a screen in it that nobody sees.
class ConsoleScreen : public testing::Test {
 protected:
  ConsoleScreen() : screen_(newScreen()) {
    if (screen_ == INVALID_HANDLE_VALUE) throw std::runtime_error("no console");
    descriptor = _open_osfhandle(reinterpret_cast<std::intptr_t>(screen_), _O_WRONLY | _O_BINARY);
  }
  ~ConsoleScreen() override { _close(descriptor); }
  /// The letters from the start of a line.
  std::wstring letters(SHORT line, DWORD count) const {
    std::wstring text(count, L'\0');
    DWORD read = 0;
    ReadConsoleOutputCharacterW(screen_, text.data(), count, {0, line}, &read);
    text.resize(read);
    return text;
  }

  int descriptor = -1;

 private:
  /// Without a terminal Wine has a console in name alone.
  static HANDLE newScreen() {
    if (GetConsoleWindow() == nullptr) {
      FreeConsole();
      AllocConsole();
    }
    return CreateConsoleScreenBuffer(GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                     CONSOLE_TEXTMODE_BUFFER, nullptr);
  }

  HANDLE screen_;
};

TEST_F(ConsoleScreen, ShowsEachLetterWhateverItsCodePage) {
  const UINT former = GetConsoleOutputCP();
  SetConsoleOutputCP(437);
  EXPECT_EQ(writeAll(descriptor, "Flügel 5° → Жук\nČeský\n"), "");
  SetConsoleOutputCP(former);
  EXPECT_EQ(letters(0, 15), L"Flügel 5° → Жук");
  EXPECT_EQ(letters(1, 5), L"Český");
}

}  // namespace
}  // namespace vorlent
