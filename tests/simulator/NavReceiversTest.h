#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/NavReceivers.h"
#include "simulator/StationTable.h"

namespace vorlent {

inline constexpr double mile_m = 1852;
inline constexpr double foot_m = 0.3048;
/// A degree of a great circle: pi / 180 of 6371008.8 m.
inline constexpr double degree_m = 111195.08;

/// Everything lies at sea level about 0 N 0 E, so that metres are degrees in both directions. The
/// localiser stands 3300 m east of the threshold and is 1.8554 degrees wide to either side, the
/// glide path antenna 290.8 m east of it.
inline const std::string table = R"(
runway TEST 09  0 0  90 3000 0 2
runway TEST 27  0 0.5  270 3000 0 2
ils TST 110.30 TEST 09 3 50 300 7400 1050 250 yes no  TEST ILS
ils BCK 109.50 TEST 09 3 50 300 - - -         yes yes BACK ILS
ils NOD 108.10 TEST 09 3 50 300 - - -         no  no  NO DME
vor VVV 113.00 H 0 0 0 2 yes  HIGH VOR
vor LOW 113.10 L 0 0 0 2 yes  LOW VOR
vor TER 113.20 T 0 0 0 2 yes  TERMINAL VOR
vor BAR 113.30 H 0 0 0 2 no   BARE VOR
ndb N 381.0 H 0 0   BEACON
ndb T 1745.5 H 0 0  HIGH BEACON
)";

class NavReceiversTest : public testing::Test {
 protected:
  NavReceiversTest() {
    state.heading_deg = 90;
    state.track_deg = 90;
  }

  void tune(std::size_t at, std::uint16_t frequency) { memory.write(at, frequency); }
  void course(std::size_t at, int course_deg) {
    memory.write(at, static_cast<std::uint16_t>(course_deg));
  }
  void place(double east_m, double north_m, double altitude_m) {
    state.place = {north_m / degree_m, east_m / degree_m};
    state.altitude_m = altitude_m;
    receivers.show(state);
  }
  void placeFrom0(double bearing_deg, double distance_m, double altitude_m) {
    state.place = placeFrom({0, 0}, bearing_deg, distance_m);
    state.altitude_m = altitude_m;
    receivers.show(state);
  }
  /// So far from the localiser, so many degrees to the left of who comes in.
  void placeFromLocaliser(double left_deg, double distance_m, double altitude_m) {
    state.place = placeFrom({0, 3300 / degree_m}, 270 + left_deg, distance_m);
    state.altitude_m = altitude_m;
    receivers.show(state);
  }
  int s8(std::size_t at) const { return memory.read<std::int8_t>(at); }
  int u8(std::size_t at) const { return memory.read<std::uint8_t>(at); }
  int u16(std::size_t at) const { return memory.read<std::uint16_t>(at); }
  std::string text(std::size_t at) const {
    std::string found;
    for (; memory.read<char>(at) != 0; ++at) found += memory.read<char>(at);
    return found;
  }

  OffsetMemory memory;
  AircraftState state;
  NavReceivers receivers{memory, stationsFrom(table)};
};

}  // namespace vorlent
