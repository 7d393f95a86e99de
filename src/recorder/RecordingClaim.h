#pragma once

#include <memory>
#include <string>

namespace vorlent {

/// Whoever writes a recording has this on it, so that nobody else takes it for an old one. It goes
/// with the process, however that ends. One source file for each operating system.
class RecordingClaim {
 public:
  /// The file is made if it is not there.
  explicit RecordingClaim(const std::string& path);
  ~RecordingClaim();
  RecordingClaim(const RecordingClaim&) = delete;
  RecordingClaim& operator=(const RecordingClaim&) = delete;

 private:
  struct Held;

  std::unique_ptr<Held> held_;
};

/// Whether somebody has a claim on that file. Not for a file that this process writes: asking would
/// take SQLite's locks off it.
bool isBeingWritten(const std::string& path);
/// Whether files can be made in that folder.
bool takesFiles(const std::string& folder);

}  // namespace vorlent
