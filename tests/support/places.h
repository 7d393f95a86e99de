#pragma once

#include <string>

namespace vorlent {

// Folders of the sources and of this build, full paths without a slash at the end. They stand in
// one source file, so that a clone elsewhere finds every other object in the compiler's cache.

std::string dataFolder();  ///< the program folder as shipped
std::string docsFolder();
std::string testsFolder();
std::string programsFolder();  ///< what was built

}  // namespace vorlent
