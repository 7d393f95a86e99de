#include "platform/win32/SystemFiles.h"

#include <windows.h>

namespace vorlent {

std::string systemFolder() {
  const UINT sizeWithNul = GetSystemDirectoryA(nullptr, 0);
  std::string folder(sizeWithNul, '\0');
  folder.resize(GetSystemDirectoryA(folder.data(), sizeWithNul));
  return folder;
}

std::vector<std::string> systemFiles() {
  const std::string folder = systemFolder();
  std::vector<std::string> paths;
  for (const char* name : {"dinput8.dll", "dsound.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll",
                           "ole32.dll", "shell32.dll", "user32.dll", "ws2_32.dll"})
    paths.push_back(folder + "\\" + name);
  return paths;
}

}  // namespace vorlent
