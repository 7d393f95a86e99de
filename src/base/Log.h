#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vorlent {

/// log.txt in the program folder: one message a line, each line opened, written and closed by
/// itself, so that the log survives a crash up to its last line. Control characters are escaped as
/// printable() does. A log that reaches its limit says so in its last line.
class Log {
 public:
  static constexpr std::size_t Limit_bytes = 100'000'000;

  explicit Log(std::string path) : path_(std::move(path)) {}
  /// A log that cannot be written is passed over: it must never end a flight.
  void WriteLog(std::string_view text) const;
  void remove() const;

 private:
  std::string path_;
};

}  // namespace vorlent
