#include "platform/ProgramFolder.h"

#include <windows.h>

#include <array>
#include <filesystem>

#include "base/RuntimeError.h"

namespace vorlent {

std::string executableFolder() {
  constexpr DWORD LongestPath = 32768;
  std::array<wchar_t, LongestPath> path{};
  const DWORD length = GetModuleFileNameW(nullptr, path.data(), LongestPath);
  if (length == 0 || length == LongestPath) throw RuntimeError(RuntimeError::PathNotFound);
  const auto folder = std::filesystem::path(path.data()).parent_path().u8string();
  return {folder.begin(), folder.end()};
}

std::string programFolder() { return executableFolder(); }

}  // namespace vorlent
