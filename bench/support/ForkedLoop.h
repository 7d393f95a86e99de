#pragma once

#include <sys/types.h>

#include <functional>

namespace vorlent {

/// `loop` in a process of its own, without another program being loaded; killed at the end of this
/// object. To be used while this process has a single thread.
class ForkedLoop {
 public:
  explicit ForkedLoop(const std::function<void()>& loop);
  ~ForkedLoop();
  ForkedLoop(const ForkedLoop&) = delete;
  ForkedLoop& operator=(const ForkedLoop&) = delete;

  pid_t id() const { return id_; }

 private:
  pid_t id_ = -1;
};

}  // namespace vorlent
