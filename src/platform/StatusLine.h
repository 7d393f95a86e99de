#pragma once

#include <string>
#include <string_view>

namespace vorlent {

/// Where the operator reads what happens.
class StatusLine {
 public:
  virtual ~StatusLine() = default;
  /// Panel 1 is the log line, which also goes to log.txt, panel 2 the state line. Blank text
  /// changes nothing.
  virtual void SetStatusText(int panel, const std::string& text) = 0;
  /// A line of log.txt that no panel shows.
  virtual void WriteLog(std::string_view text) = 0;
};

}  // namespace vorlent
