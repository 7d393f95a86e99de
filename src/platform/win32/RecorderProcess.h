#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/RecorderLink.h"
#include "platform/win32/HelperStart.h"

namespace vorlent {

/// The helper that writes recordings, as a process beside this one. Its standard input is a pipe
/// that is written to without waiting: events go there. What is wrong comes back on its standard
/// output, a line a sentence.
class RecorderProcess : public RecorderLink {
 public:
  static constexpr int LongestFarewell_ms = 2000;

  /// `folder` is where it writes, and `size_MB` how much may lie there. One that cannot be started
  /// is told as news.
  RecorderProcess(const std::string& program, const std::string& folder, int size_MB);
  ~RecorderProcess() override;
  RecorderProcess(const RecorderProcess&) = delete;
  RecorderProcess& operator=(const RecorderProcess&) = delete;

  std::size_t send(std::string_view bytes) override;
  bool lost() override { return !events_; }
  std::optional<std::string> news() override;
  void end(std::string_view rest) override;

 private:
  class Events;

  void lose(const std::string& why);
  void receive();

  std::unique_ptr<Events> events_;
  Handle words_;
  Handle process_;
  std::string said_;  ///< what came, and has not been told
};

}  // namespace vorlent
