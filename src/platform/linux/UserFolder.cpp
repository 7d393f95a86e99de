#include "platform/linux/UserFolder.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/ShippedDocuments.h"
#include "platform/linux/WholeFile.h"

namespace vorlent {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view Settings = "Vorlent.ini";

/// Empty for a relative one as well, which the rules of XDG tell to pass over.
std::string absoluteFolderIn(const char* variable) {
  const char* value = std::getenv(variable);
  return value && *value == '/' ? value : "";
}

std::string home() {
  std::string named = absoluteFolderIn("HOME");
  if (!named.empty()) return named;
  const passwd* user = getpwuid(getuid());
  if (user && *user->pw_dir == '/') return user->pw_dir;
  throw RuntimeError(RuntimeError::PathNotFound,
                     "You have no home folder to keep your settings in. Name one in HOME");
}

/// Names of the files below `folder`, Vorlent.ini behind all others: where it is, all are.
std::vector<std::string> filesBelow(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    if (entry.is_regular_file()) names.push_back(entry.path().lexically_relative(folder).string());
  std::sort(names.begin(), names.end(), [](const std::string& one, const std::string& other) {
    return std::pair(one == Settings, one) < std::pair(other == Settings, other);
  });
  return names;
}

void copyIfMissing(const std::string& name, const std::string& from, const std::string& to) {
  const fs::path target = nativePath(joinedPath(to, name));
  if (!fs::exists(fs::symlink_status(target))) copyWhole(from + "/" + name, target);
}

}  // namespace

std::string userFolder() {
  const std::string data = absoluteFolderIn("XDG_DATA_HOME");
  return (data.empty() ? home() + "/.local/share" : data) + "/vorlent";
}

void addMissingFiles(const std::string& shipped, const std::string& folder) {
  std::string name;
  try {
    fs::create_directories(folder);
    // Two programs that start at once take turns. A file system without locks goes without.
    const Descriptor turn(open(fs::path(folder).parent_path().c_str(), O_RDONLY | O_CLOEXEC));
    flock(turn.number(), LOCK_EX);
    for (const std::string& each : filesBelow(shipped)) copyIfMissing(name = each, shipped, folder);
    name = "the documents";
    renewDocuments(shipped, folder);
  } catch (const fs::filesystem_error& error) {
    throw RuntimeError(RuntimeError::PathAccess,
                       "Couldn't copy " + (name.empty() ? "the files" : name) + " of " + shipped +
                           " to " + folder + ": " + error.code().message());
  }
}

std::string programFolderOf(const std::string& executableFolder) {
  const std::string shipped = folderOf(executableFolder) + "/share/vorlent";
  if (fileExists(joinedPath(executableFolder, Settings)) ||
      !fileExists(joinedPath(shipped, Settings)))
    return executableFolder;
  std::string folder = userFolder();
  addMissingFiles(shipped, folder);
  return folder;
}

}  // namespace vorlent
