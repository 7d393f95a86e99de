#pragma once

#include <sys/resource.h>

#include <csignal>

namespace vorlent {

/// No file can grow beyond so many bytes: a disk that is full.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : oldAction_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &old_);
    const rlimit limit{bytes, old_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, oldAction_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit old_{};
  void (*oldAction_)(int);
};

}  // namespace vorlent
