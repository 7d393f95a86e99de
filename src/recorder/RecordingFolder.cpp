#include "recorder/RecordingFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

const std::string Head = "Vorlent ";
const std::string Tail = ".sqlite";
/// What SQLite has beside a file that it writes.
const std::array<std::string, 3> Companions{"-wal", "-shm", "-journal"};

bool isRecording(const std::string& name) { return name.starts_with(Head) && name.ends_with(Tail); }

struct Recording {
  fs::path path;
  std::uint64_t size_bytes;
};

std::uint64_t sizeWithCompanions_bytes(const std::string& path) {
  std::error_code failed;
  std::uint64_t size_bytes = fs::file_size(path, failed);
  for (const std::string& companion : Companions)
    if (fs::exists(path + companion, failed)) size_bytes += fs::file_size(path + companion, failed);
  return size_bytes;
}

/// The oldest first: their names are in the order of their times.
std::vector<Recording> recordingsIn(const std::string& folder) {
  std::vector<Recording> recordings;
  std::error_code failed;
  for (fs::directory_iterator entry(folder, failed), end; entry != end; entry.increment(failed)) {
    if (failed) break;
    if (isRecording(entry->path().filename()) && entry->is_regular_file(failed))
      recordings.push_back({entry->path(), sizeWithCompanions_bytes(entry->path())});
  }
  std::sort(recordings.begin(), recordings.end(),
            [](const Recording& a, const Recording& b) { return a.path < b.path; });
  return recordings;
}

bool isBeingWritten(const fs::path& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const bool taken = file >= 0 && flock(file, LOCK_EX | LOCK_NB) != 0;
  if (file >= 0) close(file);
  return taken;
}

}  // namespace

RecordingFolder::RecordingFolder(std::string path) : path_(std::move(path)) {
  std::error_code failed;
  fs::create_directories(path_, failed);
  if (!fs::is_directory(path_, failed) || access(path_.c_str(), W_OK | X_OK) != 0)
    throw RuntimeError(RuntimeError::PathAccess, "the folder " + path_ + " cannot be written");
}

std::string RecordingFolder::newFile(const std::string& localTime) const {
  std::string name = Head + localTime;
  std::replace(name.begin(), name.end(), ':', '.');
  fs::path path = fs::path(path_) / (name + Tail);
  for (int another = 2; fs::exists(path); ++another) {
    const std::string mark = " (" + std::to_string(another) + ")";
    path = fs::path(path_) / (std::string(name).append(mark) + Tail);
  }
  return path.string();
}

void RecordingFolder::keepWithin(std::uint64_t size_bytes, const std::string& own) const {
  const std::vector<Recording> recordings = recordingsIn(path_);
  std::uint64_t all_bytes = 0;
  for (const Recording& recording : recordings) all_bytes += recording.size_bytes;
  for (const Recording& recording : recordings) {
    if (all_bytes <= size_bytes) return;
    if (recording.path == own || isBeingWritten(recording.path)) continue;
    std::error_code failed;
    if (fs::remove(recording.path, failed)) all_bytes -= recording.size_bytes;
    for (const std::string& companion : Companions)
      fs::remove(recording.path.string() + companion, failed);
  }
}

RecordingClaim::RecordingClaim(const std::string& path)
    : file_(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
  if (file_ >= 0) flock(file_, LOCK_EX | LOCK_NB);
}

RecordingClaim::~RecordingClaim() {
  if (file_ >= 0) close(file_);
}

}  // namespace vorlent
