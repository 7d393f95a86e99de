#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "recording/Event.h"

namespace vorlent {

/// What a recording tells of itself.
struct RecordingSummary {
  std::string version;         ///< of the server that was recorded
  std::string started;         ///< local time, "2026-11-22 13:16:00"
  std::int64_t length_us = 0;  ///< the time of the last event
  std::uint64_t dropped = 0;   ///< events that are missing
  bool ended = false;          ///< in order; false: cut off, or still being written
};

/// The events of a recording, in their order.
class RecordingReader {
 public:
  /// Raises RuntimeError with a sentence for the user for a file that is no recording, or one of a
  /// newer format.
  explicit RecordingReader(const std::string& path);
  ~RecordingReader();
  RecordingReader(const RecordingReader&) = delete;
  RecordingReader& operator=(const RecordingReader&) = delete;

  const RecordingSummary& summary() const;
  /// Nothing behind the last. Files come first, at the time of the start.
  std::optional<recorded::Event> next();
  /// Goes to the beginning.
  void rewind();
  /// Goes to a place at most 30 s before this time, or to the beginning: from there on all
  /// events follow. Those of the start are passed over then.
  void seek(std::int64_t time_us);
  /// What ended the reading before the end of the file, in a sentence; empty when nothing did.
  const std::string& fault() const;

 private:
  class File;
  std::unique_ptr<File> file_;
};

}  // namespace vorlent
