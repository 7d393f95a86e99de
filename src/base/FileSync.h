#pragma once

#include <cstdio>
#include <string>

namespace vorlent {

/// Waits until what was written is on the disk. One source file for each operating system.
void syncToDisk(std::FILE* file);
/// The same for the names in a folder.
void syncFolderToDisk(const std::string& folder);

}  // namespace vorlent
