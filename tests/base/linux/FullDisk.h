#pragma once

#include <sys/resource.h>

#include <csignal>

namespace vorlent {

/// As long as it lives, no file of this process grows beyond these bytes, as on a disk that is
/// full.
class FullDisk {
 public:
  explicit FullDisk(rlim_t room_bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &old_);
    const rlimit small{room_bytes, old_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, handler_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit old_{};
  void (*handler_)(int);
};

}  // namespace vorlent
