#include "platform/Drives.h"

#include <windows.h>

namespace vorlent {

std::vector<std::string> systemDrives() {
  std::vector<std::string> drives;
  const DWORD letters = GetLogicalDrives();
  for (int i = 0; i < 26; ++i)
    if ((letters >> i & 1) != 0) drives.push_back(std::string(1, static_cast<char>('A' + i)) + ":");
  return drives;
}

}  // namespace vorlent
