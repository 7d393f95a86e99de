#include "platform/qt/timerType.h"

namespace vorlent {

/// A precise timer holds the whole machine at a resolution of 1 ms for as long as it runs. A server
/// that waits for a display has none: its status is looked at each 250 ms. The others may be late
/// by a twentieth.
Qt::TimerType timerType(int interval_ms) {
  constexpr int FirstPatient_ms = 250;
  return interval_ms < FirstPatient_ms ? Qt::PreciseTimer : Qt::CoarseTimer;
}

}  // namespace vorlent
