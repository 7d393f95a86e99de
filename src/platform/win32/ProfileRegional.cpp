#include "platform/win32/ProfileRegional.h"

#include <windows.h>

#include <array>

namespace vorlent {

std::string ProfileRegional::decimalSeparator() {
  std::array<char, 255> mark{};
  const DWORD length =
      GetProfileStringA("intl", "sDecimal", "", mark.data(), static_cast<DWORD>(mark.size()));
  return {mark.data(), length};
}

}  // namespace vorlent
