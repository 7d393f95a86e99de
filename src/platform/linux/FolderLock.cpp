#include "platform/linux/FolderLock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>

#include "base/files.h"

namespace vorlent {

bool FolderLock::claim(const std::string& programFolder) {
  folder_ = Descriptor();
  folder_ = Descriptor(open(nativePath(programFolder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  return !folder_ || flock(folder_.number(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

}  // namespace vorlent
