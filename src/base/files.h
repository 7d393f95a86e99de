#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
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

/// 0 when it is not there.
std::uintmax_t fileSize(std::string_view path);

/// By which a file that has been written anew is told from what it was; the same whenever it is not
/// there.
struct FileStamp {
  std::uintmax_t size_bytes = 0;
  std::filesystem::file_time_type modified;
  bool operator==(const FileStamp&) const = default;
};
FileStamp fileStamp(std::string_view path);

/// No file of ours comes near it; one that is larger would hold up the start.
constexpr std::size_t LargestReadFile_bytes = std::size_t{64} << 20U;

/// Raises FileNotFound, PathNotFound, PermissionDenied or PathAccess, as do all that follow; those
/// that write also DiskFull. All of them work on regular files alone, and when every descriptor of
/// the process is in use, too. A file above LargestReadFile_bytes is refused (PathAccess).
std::string readFile(std::string_view path);
/// Nothing when the file is larger; no more than that is read then.
std::optional<std::string> readFileUpTo(std::string_view path, std::size_t limit_bytes);

/// What becomes of a symbolic link in the file's place: somebody who links his settings means the
/// file behind the link, but a file of our own making must not be led to another's.
enum class Link { Followed, Replaced };
/// Replaces the file as a whole: whatever cuts this off leaves the old content or the new.
void replaceFile(std::string_view path, std::string_view content, Link link = Link::Followed);
/// Writes over the start of the file and cuts nothing: a longer old content keeps its tail.
void overwriteStart(std::string_view path, std::string_view content);
/// Opens, appends and closes, so that what was appended survives a crash. A symbolic link is not
/// followed: PathAccess.
void appendToFile(std::string_view path, std::string_view content);
void deleteFile(std::string_view path);

}  // namespace vorlent
