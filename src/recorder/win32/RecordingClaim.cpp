#include "recorder/RecordingClaim.h"

#include <windows.h>

#include "base/systemPath.h"

namespace vorlent {
namespace {

constexpr DWORD ReadAndWrite = FILE_SHARE_READ | FILE_SHARE_WRITE;

bool opens(const std::string& path, DWORD access, DWORD flags) {
  const HANDLE file =
      CreateFileW(systemPath(path).c_str(), access, ReadAndWrite | FILE_SHARE_DELETE, nullptr,
                  OPEN_EXISTING, flags, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  CloseHandle(file);
  return true;
}

}  // namespace

struct RecordingClaim::Held {
  HANDLE file;
};

/// Everybody may read and write, nobody may delete.
RecordingClaim::RecordingClaim(const std::string& path)
    : held_(std::make_unique<Held>(
          Held{CreateFileW(systemPath(path).c_str(), GENERIC_READ | GENERIC_WRITE, ReadAndWrite,
                           nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)})) {}

RecordingClaim::~RecordingClaim() {
  if (held_->file != INVALID_HANDLE_VALUE) CloseHandle(held_->file);
}

bool isBeingWritten(const std::string& path) { return !opens(path, DELETE, 0); }

bool takesFiles(const std::string& folder) {
  return opens(folder, FILE_ADD_FILE, FILE_FLAG_BACKUP_SEMANTICS);
}

}  // namespace vorlent
