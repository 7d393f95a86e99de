#include "support/ForkedLoop.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

namespace vorlent {

ForkedLoop::ForkedLoop(const std::function<void()>& loop) : id_(fork()) {
  if (id_ < 0) throw std::runtime_error("no process");
  if (id_ > 0) return;
  // Not to be left over when this process is ended from outside.
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  loop();
  _exit(0);
}

ForkedLoop::~ForkedLoop() {
  kill(id_, SIGKILL);
  waitpid(id_, nullptr, 0);
}

}  // namespace vorlent
