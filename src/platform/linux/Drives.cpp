#include "platform/Drives.h"

namespace vorlent {

std::vector<std::string> systemDrives() { return {}; }

}  // namespace vorlent
