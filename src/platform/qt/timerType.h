#pragma once

#include <Qt>

namespace vorlent {

/// How precise a timer of this interval is.
Qt::TimerType timerType(int interval_ms);

}  // namespace vorlent
