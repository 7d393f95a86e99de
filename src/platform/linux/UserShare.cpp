#include "platform/linux/UserShare.h"

#include "base/files.h"
#include "platform/linux/ChildProcess.h"

namespace vorlent {
namespace {

/// What `net usershare info` prints holds the folder in a line of its own.
bool namesFolder(const std::string& info, const std::string& folder) {
  return ("\n" + info + "\n").find("\npath=" + folder + "\n") != std::string::npos;
}

}  // namespace

bool UserShare::publish(const std::string& shareName, const std::string& folder) {
  const std::string native = nativePath(folder);
  const auto info = runChild({netProgram_, "usershare", "info", shareName}, deadline_ms_);
  if (!info || namesFolder(*info, native)) return false;
  return runChild({netProgram_, "usershare", "add", shareName, native}, deadline_ms_).has_value();
}

}  // namespace vorlent
