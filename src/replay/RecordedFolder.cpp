#include "replay/RecordedFolder.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "base/RuntimeError.h"
#include "base/TemporaryFolder.h"
#include "base/systemPath.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

/// A recording can come from anybody.
bool liesInside(const fs::path& path) {
  if (path.empty() || path.has_root_path()) return false;
  return nameOf(*path.lexically_normal().begin()) != "..";
}

}  // namespace

RecordedFolder::RecordedFolder(const std::vector<recorded::FileKept>& files)
    : path_(makeTemporaryFolder("vorlent-replay")) {
  try {
    for (const recorded::FileKept& file : files) put(file);
  } catch (...) {
    std::error_code ignored;
    fs::remove_all(systemPath(path_), ignored);
    throw;
  }
}

RecordedFolder::~RecordedFolder() {
  std::error_code ignored;
  fs::remove_all(systemPath(path_), ignored);
}

/// One without content is there, but empty: sounds are not heard.
void RecordedFolder::put(const recorded::FileKept& file) const {
  if (!liesInside(systemPath(file.path)))
    throw RuntimeError(RuntimeError::BadFileName,
                       "The recording has a file outside the program folder: " + file.path);
  const fs::path place = systemPath(path_) / systemPath(file.path);
  std::error_code error;
  fs::create_directories(place.parent_path(), error);
  std::ofstream to(place, std::ios::binary);
  to << file.content;
  if (!to.flush())
    throw RuntimeError(RuntimeError::PathAccess, nameOf(place) + " cannot be written");
}

}  // namespace vorlent
