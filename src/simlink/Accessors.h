#pragma once

#include <memory>

#include "simlink/clsAutoP.h"
#include "simlink/clsEng.h"
#include "simlink/clsFsOpt.h"
#include "simlink/clsRadio.h"
#include "simlink/clsSrv.h"

namespace vorlent {

/// The accessors, through which the simulator is controlled. clsAutoP is made with the link, the
/// others with the server; an orderly exit releases them.
struct Accessors {
  std::unique_ptr<clsAutoP> autoP;
  std::unique_ptr<clsEng> eng;
  std::unique_ptr<clsFsOpt> fsOpt;
  std::unique_ptr<clsRadio> radio;
  std::unique_ptr<clsSrv> srv;
};

}  // namespace vorlent
