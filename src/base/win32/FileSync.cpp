#include "base/FileSync.h"

#include <io.h>

namespace vorlent {

void syncToDisk(std::FILE* file) { _commit(_fileno(file)); }

void syncFolderToDisk(const std::string&) {}

}  // namespace vorlent
