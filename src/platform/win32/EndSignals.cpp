#include "platform/EndSignals.h"

#include <initializer_list>

namespace vorlent {
namespace {

volatile std::sig_atomic_t ended = 0;

void end(int) { ended = 1; }

}  // namespace

// Windows ends a program whose console is closed by itself.
const volatile std::sig_atomic_t& catchEndSignals() {
  for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, end);
  return ended;
}

}  // namespace vorlent
