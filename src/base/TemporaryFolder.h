#pragma once

#include <string>

namespace vorlent {

/// Makes a folder among the system's temporary ones that nobody has and nobody else may look into;
/// its name begins so. Raises RuntimeError PathAccess with a sentence when it cannot be made. One
/// source file for each operating system.
std::string makeTemporaryFolder(const std::string& name);

}  // namespace vorlent
