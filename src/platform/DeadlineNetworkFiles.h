#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/AbsentHosts.h"
#include "platform/NetworkFiles.h"

namespace vorlent {

/// Gives files that may keep a call waiting a deadline: each call runs in a thread of its own, and
/// one that misses the deadline is left to itself. Its host is absent then for
/// AbsentHosts::Absence_ms: calls to it find nothing, without waiting.
class DeadlineNetworkFiles : public NetworkFiles {
 public:
  static constexpr std::chrono::milliseconds Deadline{1000};

  /// `files` are called by several threads at a time, and live until the last of them is through.
  DeadlineNetworkFiles(std::shared_ptr<NetworkFiles> files, EventLoop& clock)
      : files_(std::move(files)), absent_(clock) {}

  bool exists(const std::string& path) override;
  bool write(const std::string& path, const std::string& content) override;
  bool remove(const std::string& path) override;

 protected:
  NetworkContent readUpTo(const std::string& path, std::size_t limit_bytes) override;

 private:
  template <class Work>
  auto call(const std::string& path, Work work);

  std::shared_ptr<NetworkFiles> files_;
  AbsentHosts absent_;
};

}  // namespace vorlent
