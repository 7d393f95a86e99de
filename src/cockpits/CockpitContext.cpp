#include "cockpits/CockpitContext.h"

#include "base/files.h"
#include "platform/Operator.h"

namespace vorlent {

std::string CockpitContext::cockpits() const { return joinedPath(programFolder, "Cockpits"); }

std::string CockpitContext::templates() const { return joinedPath(programFolder, "Templates"); }

void CockpitContext::tell(const std::string& text) const {
  op.messageBox(text, BoxIcon::Plain, "Vorlent");
}

}  // namespace vorlent
