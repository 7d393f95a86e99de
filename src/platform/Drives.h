#pragma once

#include <string>
#include <vector>

namespace vorlent {

/// The drives of this machine, as "C:"; none on a system that has no such thing.
std::vector<std::string> systemDrives();

}  // namespace vorlent
