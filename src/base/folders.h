#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Whole folders, by the paths of base/files.h. Whatever raises a fault here ends its description
/// with a line that is the path.
namespace vorlent {

/// A name that can be a folder's on every system: no separator, none of `:*?"<>|`, no control
/// character, no dot or blank at its end; not empty.
bool isFolderName(std::string_view name);
/// `folder` and `name`; raises BadFileName for a name that is none.
std::string subFolder(std::string_view folder, std::string_view name);

/// Raises PathAccess where something of that name is already, PathNotFound where the folder above
/// is not there, or PermissionDenied.
void makeFolder(std::string_view path);
/// Names of the files, sorted without regard to case.
std::vector<std::string> filesIn(std::string_view path);

/// As a whole: whatever cuts it off leaves at `to` what was there, or the new content. Raises what
/// readFile() and replaceFile() raise.
void copyFile(std::string_view from, std::string_view to);
/// The files that lie in `from` itself; none where there is no such folder.
void copyFiles(std::string_view from, std::string_view to);

/// With its sub-folders, to a place where nothing is yet: else PathAccess, and nothing is copied.
void copyFolder(std::string_view from, std::string_view to);
/// Over what is there. A file that gets other content is kept beside it as `<name>.bak` first, if
/// there is none yet.
void copyFolderOver(std::string_view from, std::string_view to);

/// To a place on the same disk where nothing is yet: else PathAccess.
void moveFolder(std::string_view from, std::string_view to);
/// With all that is in it; nothing where it is not there.
void deleteFolder(std::string_view path);
/// Both lead to one folder that is there.
bool sameFolder(std::string_view a, std::string_view b);

}  // namespace vorlent
