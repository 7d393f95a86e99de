#include "platform/win32/NamedMutexLock.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>

#include "base/files.h"
#include "base/systemPath.h"

namespace vorlent {
namespace {

/// A backslash within the name would be refused.
std::wstring mutexName(const std::string& programFolder) {
  std::error_code failed;
  std::wstring name =
      std::filesystem::canonical(systemPath(nativePath(programFolder)), failed).wstring();
  std::replace(name.begin(), name.end(), L'\\', L'/');
  CharLowerBuffW(name.data(), static_cast<DWORD>(name.size()));
  return failed ? std::wstring() : L"Global\\vorlent:" + name;
}

}  // namespace

void NamedMutexLock::Close::operator()(void* handle) const { CloseHandle(handle); }

bool NamedMutexLock::claim(const std::string& programFolder) {
  mutex_.reset();
  const std::wstring name = mutexName(programFolder);
  if (name.empty()) return true;
  SetLastError(ERROR_SUCCESS);
  mutex_.reset(CreateMutexW(nullptr, FALSE, name.c_str()));
  const DWORD error = GetLastError();
  // Another user's mutex is refused rather than shared.
  const bool taken = error == ERROR_ALREADY_EXISTS || error == ERROR_ACCESS_DENIED;
  if (taken) mutex_.reset();
  return !taken;
}

}  // namespace vorlent
