#include "platform/ProgramFolder.h"

#include <filesystem>
#include <system_error>

#include "base/RuntimeError.h"
#include "platform/linux/UserFolder.h"

namespace vorlent {

std::string programFolder() {
  std::error_code failed;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", failed);
  if (failed) throw RuntimeError(RuntimeError::PathNotFound);
  return programFolderOf(program.parent_path().string());
}

}  // namespace vorlent
