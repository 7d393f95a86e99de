#include "platform/EndSignals.h"

#include <initializer_list>

namespace vorlent {
namespace {

volatile std::sig_atomic_t ended = 0;

void end(int) { ended = 1; }

}  // namespace

const volatile std::sig_atomic_t& catchEndSignals() {
  for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, end);
  if (std::signal(SIGHUP, SIG_IGN) != SIG_IGN) std::signal(SIGHUP, end);
  return ended;
}

}  // namespace vorlent
