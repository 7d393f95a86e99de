#include "autoflight/Autoflight.h"

#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"

namespace vorlent {

Autoflight::Autoflight(modPublic& theStore, Accessors& theAccessors, NetworkFiles& theNetworkFiles,
                       PerformanceDb& thePerformanceDb, StatusLine& theStatus,
                       AutoflightHost& theHost)
    : store(theStore),
      accessors(theAccessors),
      networkFiles(theNetworkFiles),
      performanceDb(thePerformanceDb),
      status(theStatus),
      host(theHost) {}

Autoflight::~Autoflight() = default;

void Autoflight::make() {
  annunciators = {};
  xAutoP = std::make_unique<clsXAutoP>(*this);
  xAutoT = std::make_unique<clsXAutoT>(*this);
  afds = std::make_unique<clsAfds>(*this);
}

}  // namespace vorlent
