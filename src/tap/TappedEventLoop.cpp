#include "tap/TappedEventLoop.h"

#include "recording/portTexts.h"

namespace vorlent {

LocalTime TappedEventLoop::localTime() {
  const LocalTime now = inner_.localTime();
  tap_.answer(recorded::Call::LocalTime, recorded::numberOfTime(now));
  return now;
}

}  // namespace vorlent
