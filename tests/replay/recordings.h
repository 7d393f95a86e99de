#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "recording/Event.h"
#include "recording/sqlite/RecordingReader.h"
#include "recording/sqlite/RecordingWriter.h"
#include "support/TempFolder.h"

namespace vorlent {

/// A request of ten bytes from 0x0560 on, a read each, as large as a poll's.
inline recorded::Request tenReads() {
  recorded::Request request;
  for (std::uint32_t at = 0; at < 10; ++at) request.push_back({false, 0x0560 + at, 1});
  return request;
}

/// The answer to it, all bytes alike.
inline recorded::Exchanged pollOf(char byte) {
  recorded::Exchanged exchanged;
  exchanged.request = std::make_shared<const recorded::Request>(tenReads());
  exchanged.read = std::string(10, byte);
  exchanged.answered = true;
  exchanged.reply = 1;
  return exchanged;
}

/// A recording that a test writes.
class WrittenRecording {
 public:
  WrittenRecording() { add(0, recorded::Started{"0.1", "2026-11-22 13:16:00"}); }

  void add(double time_s, recorded::What what) {
    writer_->add({static_cast<std::int64_t>(time_s * 1e6), std::move(what)});
  }
  /// Ends the writing.
  RecordingReader& reader() {
    writer_.reset();
    if (!reader_) reader_ = std::make_unique<RecordingReader>(path());
    return *reader_;
  }
  std::string path() const { return folder_ / "flight.sqlite"; }

 private:
  TempFolder folder_;
  std::unique_ptr<RecordingWriter> writer_ = std::make_unique<RecordingWriter>(path());
  std::unique_ptr<RecordingReader> reader_;
};

}  // namespace vorlent
