#include "base/BackgroundWrite.h"

#include <io.h>
#include <windows.h>

#include <string>
#include <thread>
#include <utility>

#include "base/utf16.h"

namespace vorlent {
namespace {

/// A console takes Unicode only through a call of its own; a line is whole, so no letter is cut.
std::string_view writeToConsole(HANDLE console, std::string_view text) {
  const std::string units = utf16OfUtf8(text);
  DWORD written = 0;
  const auto count = static_cast<DWORD>(units.size() / sizeof(wchar_t));
  const BOOL whole = WriteConsoleW(console, units.data(), count, &written, nullptr);
  return whole != 0 && written == count ? std::string_view() : text;
}

}  // namespace

std::string_view writeAll(int descriptor, std::string_view text) {
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(descriptor));
  DWORD mode = 0;
  if (GetConsoleMode(handle, &mode) != 0) return writeToConsole(handle, text);
  while (!text.empty()) {
    DWORD count = 0;
    if (WriteFile(handle, text.data(), static_cast<DWORD>(text.size()), &count, nullptr) == 0)
      break;
    text.remove_prefix(count);
  }
  return text;
}

void startBackgroundThread(std::function<void()> work) { std::thread(std::move(work)).detach(); }

}  // namespace vorlent
