#include "platform/qt/timerType.h"

namespace vorlent {

Qt::TimerType timerType(int) { return Qt::PreciseTimer; }

}  // namespace vorlent
