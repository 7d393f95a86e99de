#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "platform/AbsentHosts.h"
#include "platform/NetworkFiles.h"
#include "platform/linux/HelperProcess.h"
#include "platform/linux/ShareCredentials.h"

namespace vorlent {

/// The shares of other machines, through the helper vorlent-share. A call that misses the deadline
/// makes its host absent for AbsentHosts::Absence_ms: calls to it find nothing, without waiting.
class SmbNetworkFiles : public NetworkFiles {
 public:
  static constexpr std::chrono::milliseconds Deadline{1000};

  struct Settings {
    std::string helper;  ///< the program
    ShareCredentials credentials;
    std::uint16_t port = 0;  ///< 0: the usual
    std::chrono::milliseconds deadline = Deadline;
  };

  SmbNetworkFiles(const Settings& settings, EventLoop& clock);

  bool exists(const std::string& path) override;
  /// Into the file that is there. What is cut off in the middle leaves a part of it.
  bool write(const std::string& path, const std::string& content) override;
  bool remove(const std::string& path) override;

 protected:
  NetworkContent readUpTo(const std::string& path, std::size_t limit_bytes) override;

 private:
  /// `question` has its path second. Nothing is a path that is none, or a host that did not answer.
  Message ask(const Message& question, std::size_t limit_bytes = 0);
  bool isDone(const Message& question);

  std::chrono::milliseconds deadline_;
  HelperProcess helper_;
  AbsentHosts absent_;
};

}  // namespace vorlent
