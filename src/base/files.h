#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Files by the paths of this system: separated by backslashes or slashes, not minding the case of
/// letters. An existing entry of any case is taken before a new one is made.
namespace vorlent {

/// `folder`, a separator if it has none at its end, and `name`.
std::string joinedPath(std::string_view folder, std::string_view name);
/// What stands before the last separator, without it.
std::string folderOf(std::string_view path);
/// The path as the operating system wants it.
std::string nativePath(std::string_view path);

bool fileExists(std::string_view path);
bool folderExists(std::string_view path);
/// Names of the sub-folders, sorted without regard to case, without "." and "..".
std::vector<std::string> subFolders(std::string_view path);

/// Raises FileNotFound, PathNotFound, PermissionDenied or PathAccess, as do all that follow.
std::string readFile(std::string_view path);
/// Replaces the file as a whole: whatever cuts this off leaves the old content or the new.
void replaceFile(std::string_view path, std::string_view content);
/// Writes over the start of the file and cuts nothing: a longer old content keeps its tail.
void overwriteStart(std::string_view path, std::string_view content);
/// Opens, appends and closes, so that what was appended survives a crash.
void appendToFile(std::string_view path, std::string_view content);
void deleteFile(std::string_view path);

}  // namespace vorlent
