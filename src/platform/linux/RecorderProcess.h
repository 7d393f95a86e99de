#pragma once

#include <string>

#include "platform/RecorderLink.h"
#include "platform/linux/ChildProcess.h"
#include "platform/linux/Descriptor.h"

namespace vorlent {

/// The helper that writes recordings, as a process beside this one. Its standard input is one end
/// of a pair of sockets: events go there, and what is wrong comes back, a line a sentence.
class RecorderProcess : public RecorderLink {
 public:
  static constexpr int LongestFarewell_ms = 2000;

  /// `folder` is where it writes, and `size_MB` how much may lie there. One that cannot be started
  /// is told as news.
  RecorderProcess(const std::string& program, const std::string& folder, int size_MB);

  std::size_t send(std::string_view bytes) override;
  bool lost() override { return !socket_; }
  std::optional<std::string> news() override;
  void end(std::string_view rest) override;

 private:
  void lose(const std::string& why);
  void receive();
  bool awaitRoom(int deadline_ms) const;

  Descriptor socket_;
  std::optional<ChildProcess> child_;
  std::string said_;  ///< what came, and has not been told
};

}  // namespace vorlent
