#include "base/files.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include "base/FileOpen.h"
#include "base/FileSync.h"
#include "base/RuntimeError.h"
#include "base/systemPath.h"
#include "base/text.h"

namespace vorlent {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view Separators = "\\/";

[[noreturn]] void raise(int systemError) {
  switch (systemError) {
    case ENOENT:
      throw RuntimeError(RuntimeError::FileNotFound);
    case ENOTDIR:
      throw RuntimeError(RuntimeError::PathNotFound);
    case EACCES:
    case EPERM:
    case EROFS:
      throw RuntimeError(RuntimeError::PermissionDenied);
    case ENOSPC:
      throw RuntimeError(RuntimeError::DiskFull);
    default:
      throw RuntimeError(RuntimeError::PathAccess);
  }
}

/// The entry of `folder` that has this name in any case of letters; the name itself if none has.
fs::path entryOf(const fs::path& folder, const std::string& name) {
  fs::path wanted = folder / systemPath(name);
  std::error_code error;
  if (fs::exists(wanted, error)) return wanted;
  for (fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error), end;
       !error && entry != end; entry.increment(error)) {
    if (equalIgnoringCase(nameOf(entry->path().filename()), name)) return entry->path();
  }
  return wanted;
}

fs::path resolved(std::string_view path) {
  const fs::path whole = systemPath(replaced(path, "\\", "/"));
  fs::path result = whole.root_path();
  for (const auto& part : whole.relative_path())
    if (!part.empty()) result = entryOf(result, nameOf(part));
  return result;
}

/// On Windows the codes are the system's own; the condition is the same on both systems.
[[noreturn]] void raise(const std::error_code& error) {
  raise(error.default_error_condition().value());
}

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

File opened(const fs::path& path, FileUse use) {
  File file(openRegularFile(nameOf(path), use));
  if (file) return file;
  const int why = errno;
  std::error_code error;
  const bool folderMissing = path.has_parent_path() && !fs::exists(path.parent_path(), error);
  raise(why == ENOENT && folderMissing ? ENOTDIR : why);
}

void writeAll(std::FILE* file, std::string_view content) {
  if (std::fwrite(content.data(), 1, content.size(), file) != content.size() ||
      std::fflush(file) != 0)
    raise(errno);
}

/// What an earlier writer left behind makes way, and so does a link: it is not written through.
File createdAnew(const fs::path& path) {
  std::error_code leftToOpening;
  if (!fs::is_directory(fs::symlink_status(path, leftToOpening))) fs::remove(path, leftToOpening);
  return opened(path, FileUse::Create);
}

/// A new file that takes another's place; removed again when it never gets that far.
class Draft {
 public:
  explicit Draft(fs::path path) : path_(std::move(path)), file_(createdAnew(path_)) {}
  ~Draft() {
    file_.reset();
    std::error_code ignored;
    if (!renamed_) fs::remove(path_, ignored);
  }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;

  void write(std::string_view content) {
    writeAll(file_.get(), content);
    syncToDisk(file_.get());
  }

  void takePlaceOf(const fs::path& target) {
    file_.reset();
    std::error_code error;
    const auto old = fs::symlink_status(target, error);
    if (fs::is_regular_file(old)) fs::permissions(path_, old.permissions(), error);
    fs::rename(path_, target, error);
    if (error) raise(error);
    renamed_ = true;
  }

 private:
  fs::path path_;
  File file_;
  bool renamed_ = false;
};

/// Where a link that somebody made leads in the end; the path itself when it is none.
fs::path linkedFile(const fs::path& path) {
  std::error_code error;
  const fs::path linked = fs::canonical(path, error);
  return error ? path : linked;
}

}  // namespace

std::string joinedPath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.empty() && Separators.find(path.back()) == std::string_view::npos) path += '\\';
  return path += name;
}

std::string folderOf(std::string_view path) {
  const auto at = path.find_last_of(Separators);
  return std::string(at == std::string_view::npos ? std::string_view() : path.substr(0, at));
}

std::string nativePath(std::string_view path) { return nameOf(resolved(path)); }

bool fileExists(std::string_view path) {
  std::error_code error;
  return fs::is_regular_file(resolved(path), error);
}

bool folderExists(std::string_view path) {
  std::error_code error;
  return fs::is_directory(resolved(path), error);
}

std::vector<std::string> subFolders(std::string_view path) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(resolved(path), error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code unreadable;
    if (entry->is_directory(unreadable)) names.push_back(nameOf(entry->path().filename()));
  }
  std::sort(names.begin(), names.end(), lessIgnoringCase);
  return names;
}

std::string readFile(std::string_view path) {
  std::optional<std::string> content = readFileUpTo(path, LargestReadFile_bytes);
  if (!content)
    throw RuntimeError(
        RuntimeError::PathAccess,
        "The file is larger than " + std::to_string(LargestReadFile_bytes / (1 << 20)) + " MB");
  return std::move(*content);
}

std::optional<std::string> readFileUpTo(std::string_view path, std::size_t limit_bytes) {
  const SpareDescriptor spare;
  const fs::path native = resolved(path);
  std::error_code error;
  if (fs::is_directory(native, error)) raise(EISDIR);
  if (fileSize(path) > limit_bytes) return std::nullopt;
  const File file = opened(native, FileUse::Read);
  std::string content;
  char buffer[4096];
  for (std::size_t count; (count = std::fread(buffer, 1, sizeof buffer, file.get())) > 0;) {
    if (count > limit_bytes - content.size()) return std::nullopt;
    content.append(buffer, count);
  }
  if (std::ferror(file.get())) raise(EIO);
  return content;
}

void replaceFile(std::string_view path, std::string_view content, Link link) {
  const SpareDescriptor spare;
  const fs::path named = resolved(path);
  const fs::path target = link == Link::Followed ? linkedFile(named) : named;
  std::error_code error;
  // Refuses a write-protected file, and what is no file at all.
  if (fs::exists(fs::symlink_status(target, error)) && !fs::is_symlink(target, error))
    opened(target, FileUse::Update);
  Draft draft(fs::path(target) += ".new");
  draft.write(content);
  draft.takePlaceOf(target);
  syncFolderToDisk(nameOf(target.parent_path()));
}

void overwriteStart(std::string_view path, std::string_view content) {
  const SpareDescriptor spare;
  const File file = opened(resolved(path), FileUse::Update);
  writeAll(file.get(), content);
}

std::uintmax_t fileSize(std::string_view path) {
  std::error_code error;
  const auto size = fs::file_size(resolved(path), error);
  return error ? 0 : size;
}

FileStamp fileStamp(std::string_view path) {
  std::error_code error;
  FileStamp stamp{fileSize(path), fs::last_write_time(resolved(path), error)};
  return error ? FileStamp{} : stamp;
}

void appendToFile(std::string_view path, std::string_view content) {
  const SpareDescriptor spare;
  const File file = opened(resolved(path), FileUse::Append);
  writeAll(file.get(), content);
}

void deleteFile(std::string_view path) {
  std::error_code error;
  if (fs::remove(resolved(path), error)) return;
  if (error) raise(error);
  raise(ENOENT);
}

}  // namespace vorlent
