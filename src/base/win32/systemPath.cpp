#include "base/systemPath.h"

#include <cstring>

#include "base/utf16.h"

namespace vorlent {

/// No text is refused: a byte that is no UTF-8 stands for its letter in Latin-1.
std::filesystem::path systemPath(std::string_view name) {
  const std::string units = utf16OfUtf8(name);
  std::wstring path(units.size() / sizeof(wchar_t), L'\0');
  std::memcpy(path.data(), units.data(), path.size() * sizeof(wchar_t));
  return path;
}

std::string nameOf(const std::filesystem::path& path) {
  const std::wstring& units = path.native();
  return utf8OfUtf16({reinterpret_cast<const char*>(units.data()), units.size() * sizeof(wchar_t)});
}

}  // namespace vorlent
