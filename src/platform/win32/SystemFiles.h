#pragma once

#include <string>
#include <vector>

namespace vorlent {

/// With no separator at its end. Empty when the system does not tell it.
std::string systemFolder();

/// Full paths of what the server imports from the system folder.
std::vector<std::string> systemFiles();

}  // namespace vorlent
