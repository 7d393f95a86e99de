#include "base/FileSync.h"

#include <fcntl.h>
#include <unistd.h>

namespace vorlent {

void syncToDisk(std::FILE* file) { fsync(fileno(file)); }

void syncFolderToDisk(const std::string& folder) {
  const int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

}  // namespace vorlent
