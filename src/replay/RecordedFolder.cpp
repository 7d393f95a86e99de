#include "replay/RecordedFolder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

std::string newFolder() {
  std::string name = (fs::temp_directory_path() / "vorlent-replay-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr)
    throw RuntimeError(RuntimeError::PathAccess, "No folder can be made at " + name);
  return name;
}

/// A recording can come from anybody.
bool liesInside(const fs::path& path) {
  if (path.empty() || path.is_absolute()) return false;
  return *path.lexically_normal().begin() != "..";
}

}  // namespace

RecordedFolder::RecordedFolder(const std::vector<recorded::FileKept>& files) : path_(newFolder()) {
  try {
    for (const recorded::FileKept& file : files) put(file);
  } catch (...) {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
    throw;
  }
}

RecordedFolder::~RecordedFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

/// One without content is there, but empty: sounds are not heard.
void RecordedFolder::put(const recorded::FileKept& file) const {
  if (!liesInside(file.path))
    throw RuntimeError(RuntimeError::BadFileName,
                       "The recording has a file outside the program folder: " + file.path);
  const fs::path place = fs::path(path_) / file.path;
  std::error_code error;
  fs::create_directories(place.parent_path(), error);
  std::ofstream to(place, std::ios::binary);
  to << file.content;
  if (!to.flush())
    throw RuntimeError(RuntimeError::PathAccess, place.string() + " cannot be written");
}

}  // namespace vorlent
