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

std::vector<Form*> Sticks::forms() const {
  std::vector<Form*> forms{XY.get()};
  for (const auto& stick : CStick)
    if (stick) forms.push_back(stick.get());
  for (const auto& more : CMore)
    if (more) forms.push_back(more.get());
  return forms;
}

}  // namespace vorlent
