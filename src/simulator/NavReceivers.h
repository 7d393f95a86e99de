#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "simulator/AircraftState.h"
#include "simulator/NavReception.h"
#include "simulator/NavStations.h"
#include "simulator/OffsetMemory.h"

namespace vorlent {

/// Four characters, such as "07.4" or "123."; of 999.5 nm or more it has five.
std::string dmeDistanceText(double distance_nm);

/// NAV, ADF and marker receivers: they take frequencies and courses from the offsets, whoever put
/// them there, and show there what the stations give. Of several stations on one frequency the
/// nearest is heard; one whose course is received goes before one of which only ident and DME are.
/// Without power nothing is heard.
class NavReceivers {
 public:
  NavReceivers(OffsetMemory& memory, NavStations stations)
      : memory_(memory), stations_(std::move(stations)) {}

  void show(const AircraftState& state);

 private:
  std::optional<NavReading> tunedNav(std::size_t frequencyOffset, std::size_t courseOffset,
                                     const AircraftState& state) const;
  const Ndb* tunedNdb(std::size_t mainOffset, std::size_t extensionOffset,
                      const AircraftState& state) const;
  void showMarkers(const AircraftState& state);

  OffsetMemory& memory_;
  NavStations stations_;
};

}  // namespace vorlent
