#pragma once

#include <cstdio>
#include <string>

/// Opening files: one source file for each operating system.
namespace vorlent {

enum class FileUse {
  Read,
  Update,  ///< writing from the start on, which cuts nothing; made where it is missing
  Append,  ///< made where it is missing; not through a symbolic link
  Create,  ///< a new file: a name that is there already, be it a link to nothing, is in the way
};

/// Gives nullptr, with the reason in `errno`, for anything but a regular file: a pipe or a device
/// could be waited for without end.
std::FILE* openRegularFile(const std::string& path, FileUse use);

/// A process with all its descriptors in use could not even save its settings. So one is kept in
/// reserve: it is given up while an object of this class lives, and taken again behind it. The
/// first object takes it. There is one reserve, as there is one table of descriptors in a process.
class SpareDescriptor {
 public:
  SpareDescriptor();
  ~SpareDescriptor();
  SpareDescriptor(const SpareDescriptor&) = delete;
  SpareDescriptor& operator=(const SpareDescriptor&) = delete;
};

}  // namespace vorlent
