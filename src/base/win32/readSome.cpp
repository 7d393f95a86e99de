#include "base/win32/readSome.h"

#include <io.h>
#include <windows.h>

#include <array>
#include <cstddef>

#include "base/utf16.h"

namespace vorlent {

/// A console tells Unicode only through a call of its own.
std::string readSome(int descriptor) {
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(descriptor));
  DWORD count = 0;
  DWORD mode = 0;
  if (GetConsoleMode(handle, &mode) != 0) {
    std::array<wchar_t, 2048> units;
    if (ReadConsoleW(handle, units.data(), units.size(), &count, nullptr) == 0) return {};
    return utf8OfUtf16({reinterpret_cast<const char*>(units.data()), count * sizeof(wchar_t)});
  }
  std::array<char, 4096> bytes;
  if (ReadFile(handle, bytes.data(), bytes.size(), &count, nullptr) == 0) return {};
  return {bytes.data(), count};
}

}  // namespace vorlent
