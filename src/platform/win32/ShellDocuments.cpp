#include "platform/win32/ShellDocuments.h"

#include <windows.h>

#include <shellapi.h>

#include "platform/win32/wide.h"

namespace vorlent {

/// The system tells a missing association by a number of its own.
void ShellDocuments::open(const std::string& path, Done done) {
  HINSTANCE instance =
      ShellExecuteW(nullptr, L"open", wide(path).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
  const auto result = static_cast<int>(reinterpret_cast<INT_PTR>(instance));
  done(result == SE_ERR_NOASSOC ? NoAssociation : result);
}

}  // namespace vorlent
