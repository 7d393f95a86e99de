#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "recorder/RecordingFolder.h"
#include "recording/EventStream.h"
#include "recording/sqlite/RecordingWriter.h"

namespace vorlent {

/// Writes what an EventQueue sends into a file of the folder. What is wrong is told, once as long
/// as it stays the same, and the next second tries again.
class RecorderHelper {
 public:
  /// What came is in the file at the latest then. The server sends in bursts, and a burst is one
  /// transaction.
  static constexpr std::int64_t CommitPeriod_ms = 100;
  /// How often old recordings are looked for.
  static constexpr std::int64_t FolderPeriod_ms = 60'000;

  using Tell = std::function<void(const std::string& sentence)>;

  /// Raises RuntimeError as RecordingFolder does.
  RecorderHelper(const std::string& folder, std::uint64_t size_bytes, Tell tell);

  /// `now_ms` never goes back. Raises RuntimeError InputPastEnd for bytes that are not of an
  /// EventQueue, and one with a sentence when there is no file to write to.
  void take(std::string_view bytes, std::int64_t now_ms);
  /// How long until something is to be done; nothing when there is not.
  std::optional<std::int64_t> pause_ms(std::int64_t now_ms) const;
  /// Does what is due.
  void work(std::int64_t now_ms);
  /// Puts everything into the file.
  void finish() { commit(); }

 private:
  struct File {
    explicit File(const std::string& to) : path(to), claim(to), writer(to) {}
    std::string path;
    RecordingClaim claim;
    RecordingWriter writer;
  };

  void add(const recorded::Event& event);
  void commit();

  RecordingFolder folder_;
  std::uint64_t size_bytes_;
  Tell tell_;
  EventStream stream_;
  std::unique_ptr<File> file_;
  std::optional<std::int64_t> commitAt_ms_;
  std::int64_t folderAt_ms_ = 0;
  std::string told_;
};

}  // namespace vorlent
