#include "simlink/clsSrv.h"

#include "autoflight/clsXAutoP.h"
#include "core/Server.h"
#include "simlink/clsFSUIPC.h"

namespace vorlent {

void clsSrv::AileronTrim(float radians) {
  if (server_.xAutoP->ApEngaged() <= 0) return;
  int result = clsFSUIPC::Okay;
  server_.fsuipc->WriteDouble(0x2EB0, 8, radians, result);
}

void clsSrv::RudderTrim(float radians) {
  int result = clsFSUIPC::Okay;
  server_.fsuipc->WriteDouble(0x2EC0, 8, radians, result);
}

}  // namespace vorlent
