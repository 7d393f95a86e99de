#include "window/stickWindows.h"

#include "sticks/frmCMore.h"
#include "sticks/frmCStick.h"
#include "sticks/frmXY.h"
#include "window/CurveWindow.h"
#include "window/MoreWindow.h"
#include "window/StickWindow.h"

namespace vorlent {

std::unique_ptr<QDialog> makeStickWindow(Form& form, const Guard& guard) {
  if (auto* stick = dynamic_cast<frmCStick*>(&form))
    return std::make_unique<StickWindow>(*stick, guard);
  if (auto* more = dynamic_cast<frmCMore*>(&form))
    return std::make_unique<MoreWindow>(*more, guard);
  if (auto* curve = dynamic_cast<frmXY*>(&form))
    return std::make_unique<CurveWindow>(*curve, guard);
  return nullptr;
}

}  // namespace vorlent
