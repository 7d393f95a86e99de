#include "simlink/clsFsOpt.h"

#include <cmath>

#include "base/numbers.h"
#include "core/Server.h"
#include "simlink/clsFSUIPC.h"

namespace vorlent {

void clsFsOpt::FSPaused(float value) {
  int result = clsFSUIPC::Okay;
  server_.fsuipc->WriteByte(0x0264, 1, toByte(std::trunc(value)), result);
}

}  // namespace vorlent
