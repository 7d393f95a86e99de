#pragma once

#include <memory>
#include <string>

#include "recording/Event.h"

namespace vorlent {

/// One recording in a file. Events are collected until commit(), which puts them into the file as
/// a whole: whatever cuts it off leaves a file with what was committed.
class RecordingWriter {
 public:
  /// Makes the file. Raises RuntimeError with a sentence for the user when something is there
  /// already, or it cannot be made.
  explicit RecordingWriter(const std::string& path);
  /// Commits.
  ~RecordingWriter();
  RecordingWriter(const RecordingWriter&) = delete;
  RecordingWriter& operator=(const RecordingWriter&) = delete;

  /// `event` is not earlier than the one before.
  void add(const recorded::Event& event);
  /// Raises RuntimeError with a sentence for the user when the disk is full or gone. What could not
  /// be written counts as dropped then.
  void commit();

 private:
  class File;
  std::string path_;
  std::unique_ptr<File> file_;
};

}  // namespace vorlent
