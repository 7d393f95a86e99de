#include "sticks/Sticks.h"

#include "sticks/clsJoyst.h"
#include "sticks/frmCMore.h"
#include "sticks/frmCStick.h"
#include "sticks/frmXY.h"

namespace vorlent {

Sticks::Sticks(const StickContext& theContext)
    : context(theContext),
      joyst(std::make_unique<clsJoyst>(*this)),
      XY(std::make_unique<frmXY>(*this)) {}

Sticks::~Sticks() = default;

}  // namespace vorlent
