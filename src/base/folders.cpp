#include "base/folders.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <system_error>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "base/systemPath.h"
#include "base/text.h"

namespace vorlent {
namespace fs = std::filesystem;
namespace {

/// Folders in folders; more than that is a link that leads back.
constexpr int Deepest = 32;

fs::path resolved(std::string_view path) { return systemPath(nativePath(path)); }

RuntimeError at(std::string_view path, int number) {
  const RuntimeError plain(number);
  return {number, plain.description() + "\n" + nativePath(path)};
}

int numberOf(const std::error_code& error) {
  const auto condition = error.default_error_condition();
  if (condition == std::errc::permission_denied ||
      condition == std::errc::operation_not_permitted ||
      condition == std::errc::read_only_file_system)
    return RuntimeError::PermissionDenied;
  if (condition == std::errc::no_such_file_or_directory || condition == std::errc::not_a_directory)
    return RuntimeError::PathNotFound;
  return RuntimeError::PathAccess;
}

/// The fault of `work` with the path that it is about.
void about(std::string_view path, const std::function<void()>& work) {
  try {
    work();
  } catch (const RuntimeError& fault) {
    throw at(path, fault.number());
  }
}

std::vector<std::string> namesIn(std::string_view path,
                                 bool (*wanted)(const fs::directory_entry&)) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(resolved(path), error), end; !error && entry != end;
       entry.increment(error))
    if (wanted(*entry)) names.push_back(nameOf(entry->path().filename()));
  std::sort(names.begin(), names.end(), lessIgnoringCase);
  return names;
}

bool isFile(const fs::directory_entry& entry) {
  std::error_code unreadable;
  return entry.is_regular_file(unreadable);
}

std::string contentOf(std::string_view path) {
  std::string content;
  about(path, [&] { content = readFile(path); });
  return content;
}

void keepBackup(std::string_view path, const std::string& next) {
  const std::string backup = std::string(path) + ".bak";
  if (!fileExists(path) || fileExists(backup)) return;
  const std::string old = contentOf(path);
  if (old != next) about(backup, [&] { replaceFile(backup, old, Link::Replaced); });
}

using CopyOne = void (*)(std::string_view from, std::string_view to);

void copyOver(std::string_view from, std::string_view to) {
  const std::string content = contentOf(from);
  keepBackup(to, content);
  about(to, [&] { replaceFile(to, content, Link::Replaced); });
}

void copyTree(std::string_view from, std::string_view to, CopyOne copyOne, int depth) {
  if (depth > Deepest) throw at(from, RuntimeError::PathAccess);
  if (!folderExists(to)) makeFolder(to);
  for (const std::string& name : filesIn(from))
    copyOne(joinedPath(from, name), joinedPath(to, name));
  for (const std::string& name : subFolders(from))
    copyTree(joinedPath(from, name), joinedPath(to, name), copyOne, depth + 1);
}

bool isTaken(std::string_view path) {
  std::error_code none;
  return fs::exists(fs::symlink_status(resolved(path), none));
}

}  // namespace

bool isFolderName(std::string_view name) {
  if (name.empty() || name.back() == '.' || name.back() == ' ') return false;
  return std::all_of(name.begin(), name.end(), [](char c) {
    return static_cast<unsigned char>(c) >= ' ' && c != 0x7f &&
           std::string_view("\\/:*?\"<>|").find(c) == std::string_view::npos;
  });
}

std::string subFolder(std::string_view folder, std::string_view name) {
  std::string path = joinedPath(folder, name);
  if (!isFolderName(name))
    throw RuntimeError(RuntimeError::BadFileName,
                       RuntimeError(RuntimeError::BadFileName).description() + "\n" + path);
  return path;
}

void makeFolder(std::string_view path) {
  std::error_code error;
  if (fs::create_directory(resolved(path), error)) return;
  throw at(path, error ? numberOf(error) : RuntimeError::PathAccess);
}

std::vector<std::string> filesIn(std::string_view path) { return namesIn(path, isFile); }

void copyFile(std::string_view from, std::string_view to) {
  const std::string content = contentOf(from);
  about(to, [&] { replaceFile(to, content, Link::Replaced); });
}

void copyFiles(std::string_view from, std::string_view to) {
  for (const std::string& name : filesIn(from))
    copyFile(joinedPath(from, name), joinedPath(to, name));
}

void copyFolder(std::string_view from, std::string_view to) {
  if (!folderExists(from)) throw at(from, RuntimeError::PathNotFound);
  if (isTaken(to)) throw at(to, RuntimeError::PathAccess);
  copyTree(from, to, copyFile, 0);
}

void copyFolderOver(std::string_view from, std::string_view to) {
  if (!folderExists(from)) throw at(from, RuntimeError::PathNotFound);
  copyTree(from, to, copyOver, 0);
}

void moveFolder(std::string_view from, std::string_view to) {
  if (isTaken(to)) throw at(to, RuntimeError::PathAccess);
  std::error_code error;
  fs::rename(resolved(from), resolved(to), error);
  if (error) throw at(to, numberOf(error));
}

void deleteFolder(std::string_view path) {
  std::error_code error;
  fs::remove_all(resolved(path), error);
  if (error) throw at(path, numberOf(error));
}

bool sameFolder(std::string_view a, std::string_view b) {
  std::error_code absent;
  return fs::equivalent(resolved(a), resolved(b), absent);
}

}  // namespace vorlent
