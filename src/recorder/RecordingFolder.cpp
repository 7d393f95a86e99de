#include "recorder/RecordingFolder.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "base/systemPath.h"
#include "recorder/RecordingClaim.h"

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

fs::path companionOf(const fs::path& path, const std::string& mark) {
  return systemPath(nameOf(path) + mark);
}

std::uint64_t sizeWithCompanions_bytes(const fs::path& path) {
  std::error_code failed;
  std::uint64_t size_bytes = fs::file_size(path, failed);
  for (const std::string& companion : Companions)
    if (const fs::path other = companionOf(path, companion); fs::exists(other, failed))
      size_bytes += fs::file_size(other, failed);
  return size_bytes;
}

/// The oldest first: their names are in the order of their times.
std::vector<Recording> recordingsIn(const std::string& folder) {
  std::vector<Recording> recordings;
  std::error_code failed;
  for (fs::directory_iterator entry(systemPath(folder), failed), end; entry != end;
       entry.increment(failed)) {
    if (failed) break;
    if (isRecording(nameOf(entry->path().filename())) && entry->is_regular_file(failed))
      recordings.push_back({entry->path(), sizeWithCompanions_bytes(entry->path())});
  }
  std::sort(recordings.begin(), recordings.end(),
            [](const Recording& a, const Recording& b) { return a.path < b.path; });
  return recordings;
}

}  // namespace

RecordingFolder::RecordingFolder(std::string path) : path_(std::move(path)) {
  std::error_code failed;
  fs::create_directories(systemPath(path_), failed);
  if (!fs::is_directory(systemPath(path_), failed) || !takesFiles(path_))
    throw RuntimeError(RuntimeError::PathAccess, "the folder " + path_ + " cannot be written");
}

std::string RecordingFolder::newFile(const std::string& localTime) const {
  std::string name = Head + localTime;
  std::replace(name.begin(), name.end(), ':', '.');
  const fs::path folder = systemPath(path_);
  fs::path path = folder / systemPath(name + Tail);
  for (int another = 2; fs::exists(path); ++another) {
    const std::string mark = " (" + std::to_string(another) + ")";
    path = folder / systemPath(std::string(name).append(mark) + Tail);
  }
  return nameOf(path);
}

void RecordingFolder::keepWithin(std::uint64_t size_bytes, const std::string& own) const {
  const std::vector<Recording> recordings = recordingsIn(path_);
  std::uint64_t all_bytes = 0;
  for (const Recording& recording : recordings) all_bytes += recording.size_bytes;
  for (const Recording& recording : recordings) {
    if (all_bytes <= size_bytes) return;
    if (recording.path == systemPath(own) || isBeingWritten(nameOf(recording.path))) continue;
    std::error_code failed;
    if (fs::remove(recording.path, failed)) all_bytes -= recording.size_bytes;
    for (const std::string& companion : Companions)
      fs::remove(companionOf(recording.path, companion), failed);
  }
}

}  // namespace vorlent
