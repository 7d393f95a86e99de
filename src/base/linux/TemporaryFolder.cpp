#include "base/TemporaryFolder.h"

#include <cstdlib>
#include <filesystem>

#include "base/RuntimeError.h"

namespace vorlent {

std::string makeTemporaryFolder(const std::string& name) {
  std::string path = (std::filesystem::temp_directory_path() / (name + "-XXXXXX")).string();
  if (mkdtemp(path.data()) == nullptr)
    throw RuntimeError(RuntimeError::PathAccess, "No folder can be made at " + path);
  return path;
}

}  // namespace vorlent
