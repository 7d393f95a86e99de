#pragma once

#include <fstream>

#include "support/HeardSamples.h"

namespace vorlent {

/// The loudspeaker that tests/platform/win32/loudspeaker.sh records, from now on.
class Loudspeaker {
 public:
  using Moment = HeardSamples::Moment;

  /// Throws when there is none.
  Loudspeaker();

  /// Everything up to this moment, which is to come within ten seconds; throws when it does not.
  const HeardSamples& heardUntil(Moment moment);

 private:
  void read();

  static constexpr int Rate_Hz = 44100;
  std::ifstream file_;
  HeardSamples heard_{Rate_Hz};
};

}  // namespace vorlent
