#pragma once

#include <string>

#include "support/PolledServer.h"

namespace vorlent {

/// A started server whose simulator says that it is X-Plane.
class XPlaneServer : public PolledServer {
 public:
  explicit XPlaneServer(const std::string& decimalMark = ".")
      : PolledServer(decimalMark,
                     [](FakeSimulatorBus& offsets) { offsets.put(0x6FFF, std::uint8_t{1}); }) {}
};

}  // namespace vorlent
