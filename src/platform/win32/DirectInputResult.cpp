#include "platform/win32/DirectInputResult.h"

#define DIRECTINPUT_VERSION 0x0800
#include <dinput.h>

namespace vorlent {

ControllerResult controllerResult(long result) {
  if (SUCCEEDED(result)) return ControllerResult::Ok;
  switch (result) {
    case DIERR_NOTACQUIRED:
      return ControllerResult::NotAcquired;
    case E_PENDING:
      return ControllerResult::NotReady;
    default:  // DIERR_INPUTLOST and DIERR_UNPLUGGED, and whatever a driver says of a lost device
      return ControllerResult::Unplugged;
  }
}

}  // namespace vorlent
