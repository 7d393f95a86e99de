#include "platform/win32/NetShare.h"

#include <windows.h>

#include "base/files.h"
#include "platform/win32/wide.h"

namespace vorlent {

bool NetShare::publish(const std::string& shareName, const std::string& folder) {
  const std::string native = nativePath(folder);
  if (native.find('"') != std::string::npos) return false;
  std::wstring command =
      wide(netProgram_ + " SHARE " + shareName + "=\"" + native + "\"  /cache:no /users:8");
  STARTUPINFOW window{};
  window.cb = sizeof window;
  window.dwFlags = STARTF_USESHOWWINDOW;
  window.wShowWindow = SW_SHOWMINNOACTIVE;
  PROCESS_INFORMATION process{};
  if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_NEW_CONSOLE, nullptr,
                     nullptr, &window, &process) == 0)
    return false;
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return true;
}

}  // namespace vorlent
