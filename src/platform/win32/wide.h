#pragma once

#include <string>
#include <string_view>

#include "base/utf16.h"

namespace vorlent {

/// UTF-8 as the system's own calls take it.
inline std::wstring wide(std::string_view text) {
  const std::string units = utf16OfUtf8(text);
  return {reinterpret_cast<const wchar_t*>(units.data()), units.size() / sizeof(wchar_t)};
}

}  // namespace vorlent
