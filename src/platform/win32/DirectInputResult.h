#pragma once

#include "platform/Controllers.h"

namespace vorlent {

/// What an HRESULT of a device's operation means.
ControllerResult controllerResult(long result);

}  // namespace vorlent
