#pragma once

#include <string>
#include <vector>

#include "recording/Event.h"

namespace vorlent {

/// The program folder of a recording as it was at the start, in a folder for temporary files. Goes
/// with the object.
class RecordedFolder {
 public:
  /// Raises RuntimeError with a sentence for the user for a file that would lie outside, or when
  /// the folder cannot be made.
  explicit RecordedFolder(const std::vector<recorded::FileKept>& files);
  ~RecordedFolder();
  RecordedFolder(const RecordedFolder&) = delete;
  RecordedFolder& operator=(const RecordedFolder&) = delete;

  const std::string& path() const { return path_; }

 private:
  void put(const recorded::FileKept& file) const;

  std::string path_;
};

}  // namespace vorlent
