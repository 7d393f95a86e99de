#include "platform/ProgramFolder.h"

#include <filesystem>
#include <system_error>

#include "base/RuntimeError.h"
#include "platform/linux/UserFolder.h"

namespace vorlent {

std::string executableFolder() {
  std::error_code failed;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", failed);
  if (failed) throw RuntimeError(RuntimeError::PathNotFound);
  return program.parent_path().string();
}

std::string programFolder() { return programFolderOf(executableFolder()); }

}  // namespace vorlent
