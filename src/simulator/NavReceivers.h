#pragma once

#include <vector>

#include "simulator/AircraftState.h"
#include "simulator/NavStations.h"
#include "simulator/OffsetMemory.h"

namespace vorlent {

/// NAV, ADF and marker receivers: they take frequencies and courses from the offsets, whoever put
/// them there, and show there what the stations around the runway give.
class NavReceivers {
 public:
  NavReceivers(OffsetMemory& memory, const Runway& runway);

  void show(const AircraftState& state);

 private:
  const NavStation* tunedNav(std::size_t frequencyOffset, const AircraftState& state) const;
  const Beacon* tunedBeacon(std::size_t mainOffset, std::size_t extensionOffset,
                            const AircraftState& state) const;
  void showGlideslope(const AircraftState& state, const NavStation* station);
  void showMarkers(const AircraftState& state);

  OffsetMemory& memory_;
  Runway runway_;
  std::vector<NavStation> stations_;
  std::vector<Beacon> beacons_;
};

}  // namespace vorlent
