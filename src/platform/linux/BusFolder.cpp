#include "platform/linux/BusFolder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string folderName() {
  std::string named = environment("VORLENT_BUS");
  while (named.size() > 1 && named.back() == '/') named.pop_back();
  if (!named.empty()) return named;
  const std::string runtime = environment("XDG_RUNTIME_DIR");
  if (!runtime.empty()) return runtime + "/vorlent";
  return "/tmp/vorlent-" + std::to_string(getuid());
}

[[noreturn]] void refuse(const std::string& folder, const char* why) {
  throw RuntimeError(RuntimeError::PathAccess,
                     "The folder " + folder + " for the simulator interface " + why);
}

}  // namespace

std::string busFolder() {
  std::string folder = folderName();
  // A umask takes nothing from others here, but may take the user's own rights.
  if (mkdir(folder.c_str(), 0700) == 0) chmod(folder.c_str(), 0700);
  struct stat found {};
  // lstat: in /tmp, which everybody may write to, a link could lead anywhere.
  if (lstat(folder.c_str(), &found) != 0 || !S_ISDIR(found.st_mode))
    refuse(folder, "cannot be made");
  if (found.st_uid != getuid()) refuse(folder, "belongs to another user");
  if (found.st_mode & (S_IWGRP | S_IWOTH)) refuse(folder, "can be written by other users");
  return folder;
}

}  // namespace vorlent
