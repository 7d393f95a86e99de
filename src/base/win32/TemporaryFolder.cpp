#include "base/TemporaryFolder.h"

#include <filesystem>
#include <random>
#include <system_error>

#include "base/RuntimeError.h"
#include "base/systemPath.h"

namespace vorlent {

/// The system's folder of them is the user's own.
std::string makeTemporaryFolder(const std::string& name) {
  constexpr int Attempts = 100;
  const std::filesystem::path folder = std::filesystem::temp_directory_path();
  std::random_device random;
  for (int attempt = 0; attempt < Attempts; ++attempt) {
    const auto path = folder / systemPath(name + "-" + std::to_string(random()));
    std::error_code failed;
    if (std::filesystem::create_directory(path, failed)) return nameOf(path);
  }
  throw RuntimeError(RuntimeError::PathAccess, "No folder can be made in " + nameOf(folder));
}

}  // namespace vorlent
