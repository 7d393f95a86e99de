#pragma once

#include <cstdint>
#include <string>

namespace vorlent {

/// A folder of recordings, each a file that is named by when it began.
class RecordingFolder {
 public:
  /// Makes the folder if it is not there. Raises RuntimeError with a sentence for the user when it
  /// cannot be written.
  explicit RecordingFolder(std::string path);

  /// Where a recording goes that began at that local time, "2026-11-22 13:16:00": a path that is
  /// not there yet.
  std::string newFile(const std::string& localTime) const;
  /// Deletes the oldest recordings until all together have no more than that, but none that is
  /// being written. `own` is the path of the one that this process writes: it is not even opened,
  /// for closing it would take SQLite's locks off it.
  void keepWithin(std::uint64_t size_bytes, const std::string& own = {}) const;

 private:
  std::string path_;
};

/// Whoever writes a recording has this on it, so that nobody else takes it for an old one. It goes
/// with the process, however that ends.
class RecordingClaim {
 public:
  /// The file is made if it is not there.
  explicit RecordingClaim(const std::string& path);
  ~RecordingClaim();
  RecordingClaim(const RecordingClaim&) = delete;
  RecordingClaim& operator=(const RecordingClaim&) = delete;

 private:
  int file_;
};

}  // namespace vorlent
