#include "base/backups.h"

#include <filesystem>
#include <string>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "base/systemPath.h"

namespace vorlent {
namespace {

constexpr int Backups = 3;

std::string backupOf(std::string_view path, int number) {
  return std::string(path) + ".bak" + std::to_string(number);
}

void renameBackup(std::string_view path, int from, int to) {
  std::filesystem::rename(systemPath(nativePath(backupOf(path, from))),
                          systemPath(nativePath(backupOf(path, to))));
}

/// Each backup one number on, as far as the first number that is free.
void makeRoom(std::string_view path) {
  int free = 1;
  while (free < Backups && fileExists(backupOf(path, free))) ++free;
  for (int number = free; number > 1; --number) renameBackup(path, number - 1, number);
}

/// A save that fails leaves a backup of what is still there; the next one needs no other.
bool isKept(std::string_view path, const std::string& content) {
  const std::string last = backupOf(path, 1);
  return fileExists(last) && readFile(last) == content;
}

/// The new backup is whole on the disk, as number 0, before an older one is moved.
void keepUnlessSame(std::string_view path, std::string_view next) {
  try {
    const std::string old = readFile(path);
    if (old == next || isKept(path, old)) return;
    replaceFile(backupOf(path, 0), old, Link::Replaced);
    makeRoom(path);
    renameBackup(path, 0, 1);
  } catch (const RuntimeError&) {
  } catch (const std::filesystem::filesystem_error&) {
  }
}

}  // namespace

void replaceKeepingBackups(std::string_view path, std::string_view content) {
  if (fileExists(path)) keepUnlessSame(path, content);
  replaceFile(path, content);
}

void overwriteStartKeepingBackups(std::string_view path, std::string_view content) {
  std::string whole(content);
  if (fileExists(path)) {
    const std::string old = readFile(path);
    if (old.size() > whole.size()) whole += old.substr(whole.size());
  }
  replaceKeepingBackups(path, whole);
}

}  // namespace vorlent
