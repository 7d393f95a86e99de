#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "simulator/Aircraft.h"
#include "simulator/OffsetMemory.h"
#include "simulator/RequestServer.h"

namespace vorlent {

/// An aircraft behind the simulator interface: says who it is, lets time pass, answers requests.
class SimulatorHost {
 public:
  struct Options {
    bool asXPlane = false;  ///< answers as XPUIPC, otherwise as FSUIPC
    double speed = 1;       ///< seconds of flight in a second
    double notReady_s = 0;  ///< how long the not-ready flag stands after the start
  };

  /// The aircraft lives in `memory`; both must outlive the host.
  SimulatorHost(OffsetMemory& memory, Aircraft& aircraft, const Options& options,
                RequestServer::Note note);

  /// Real time passes, in seconds. More than a second at once counts as one: a process that was
  /// held up goes on where it was.
  void advance(double elapsed_s);
  std::int32_t answer(std::span<std::byte> block) { return requests_.serve(block); }

 private:
  void showReadiness();

  OffsetMemory& memory_;
  Aircraft& aircraft_;
  Options options_;
  RequestServer requests_;
  double running_s_ = 0;
};

}  // namespace vorlent
