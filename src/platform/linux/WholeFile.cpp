#include "platform/linux/WholeFile.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

#include "base/FileSync.h"
#include "base/files.h"

namespace vorlent {
namespace fs = std::filesystem;
namespace {

[[noreturn]] void raiseLastError(const fs::path& path) {
  throw fs::filesystem_error("", path, std::error_code(errno, std::generic_category()));
}

void writeToDisk(const fs::path& path, const std::string& content) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"),
                                                             std::fclose);
  if (!file || std::fwrite(content.data(), 1, content.size(), file.get()) != content.size() ||
      std::fflush(file.get()) != 0)
    raiseLastError(path);
  syncToDisk(file.get());
}

}  // namespace

void writeWhole(const fs::path& to, const std::string& content) {
  fs::create_directories(to.parent_path());
  const fs::path draft = to.string() + ".new";
  try {
    writeToDisk(draft, content);
    fs::rename(draft, to);
  } catch (const fs::filesystem_error&) {
    std::error_code ignored;
    fs::remove(draft, ignored);
    throw;
  }
  syncFolderToDisk(to.parent_path());
}

void copyWhole(const fs::path& from, const fs::path& to) {
  writeWhole(to, readFile(from.string()));
}

}  // namespace vorlent
