#include "simulator/NavReceivers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "simulator/Encoding.h"
#include "simulator/Units.h"

namespace vorlent {
namespace {

struct NavOffsets {
  std::size_t frequency, course, needle, backCourse, toFrom, radial, id, name;
  std::size_t dmeDistance, dmeSpeed;
};

constexpr NavOffsets nav1{0x0350, 0x0C4E, 0x0C48, 0x0C4A, 0x0C4B,
                          0x0C50, 0x3000, 0x3006, 0x0C29, 0x0C2E};
constexpr NavOffsets nav2{0x0352, 0x0C5E, 0x0C59, 0x0C5A, 0x0C5B,
                          0x0C60, 0x301F, 0x3025, 0x0C33, 0x0C38};

struct AdfOffsets {
  std::size_t main, extension, bearing, id, name, nameSize;
};

constexpr AdfOffsets adf1{0x034C, 0x0356, 0x0C6A, 0x303E, 0x3044, 25};
constexpr AdfOffsets adf2{0x02D4, 0x02D6, 0x02D8, 0x02DC, 0x02E2, 25};

constexpr std::size_t idSize = 6;
constexpr std::size_t nameSize = 25;

constexpr double vorRange_m = 130 * metresPerNauticalMile;
constexpr double ilsRange_m = 27 * metresPerNauticalMile;
constexpr double beaconRange_m = 60 * metresPerNauticalMile;
constexpr double ilsWidth_deg = 35;  ///< to either side of the course

constexpr double fullNeedle = 127;
constexpr double fullVor_deg = 10;
constexpr double fullLocaliser_deg = 2.5;
constexpr double fullGlideslope_deg = 0.7;
constexpr double glideslope_deg = 3;

constexpr std::uint8_t localiserTuned = 0x02;
constexpr std::uint8_t stationActive = 0x80;
constexpr std::uint8_t flagTo = 1;
constexpr std::uint8_t flagFrom = 2;

int packedValue(std::uint8_t packed) { return (packed >> 4) * 10 + (packed & 0x0F); }

std::int8_t needle(double deviation_deg, double full_deg) {
  return rounded<std::int8_t>(std::clamp(deviation_deg / full_deg, -1.0, 1.0) * fullNeedle);
}

/// Seen from the localiser; negative to the right of the centreline of somebody who comes in.
double offCourse_deg(const Runway& runway, const Place& localiser, const Place& aircraft) {
  return signedAngle(bearing_deg(localiser, aircraft) - bearing_deg(localiser, runway.threshold));
}

bool hears(const NavStation& station, const Runway& runway, const Place& aircraft) {
  const double distance_m = distanceBetween_m(aircraft, station.place);
  if (!station.isIls) return distance_m < vorRange_m;
  return distance_m < ilsRange_m &&
         std::fabs(offCourse_deg(runway, station.place, aircraft)) < ilsWidth_deg;
}

template <std::size_t Size>
void writeFormatted(OffsetMemory& memory, std::size_t offset, const char* format, double value) {
  std::array<char, Size> text;
  std::snprintf(text.data(), text.size(), format, value);
  writeText(memory, offset, Size, text.data());
}

/// Four characters each, such as "07.4" or "123.", and "250."; semicolons where nothing is
/// received.
void showDme(OffsetMemory& memory, const NavOffsets& at, const AircraftState& state,
             const NavStation* station) {
  constexpr std::size_t fieldSize = 5;
  if (!station) {
    writeText(memory, at.dmeDistance, fieldSize, ";;.;");
    writeText(memory, at.dmeSpeed, fieldSize, ";;;.");
    return;
  }
  const double slant_nm =
      std::hypot(distanceBetween_m(state.place, station->place), state.altitude_m) /
      metresPerNauticalMile;
  const double closing_deg = state.track_deg - bearing_deg(state.place, station->place);
  const double speed_kt =
      std::fabs(state.groundSpeed_m_s * std::cos(closing_deg * radiansPerDegree)) /
      metresPerSecondPerKnot;
  // 99.95 is the first that one decimal would round to five characters.
  writeFormatted<fieldSize>(memory, at.dmeDistance, slant_nm < 99.95 ? "%04.1f" : "%03.0f.",
                            slant_nm);
  writeFormatted<fieldSize>(memory, at.dmeSpeed, "%03.0f.", std::min(speed_kt, 999.0));
}

/// Needle and flags of a VOR by the course that is set, of an ILS by its own course.
void showCourse(OffsetMemory& memory, const NavOffsets& at, const AircraftState& state,
                const Runway& runway, const NavStation* station) {
  const double radial_deg =
      (station ? bearing_deg(station->place, state.place) : 0) - state.magneticVariation_deg;
  const double course_deg = memory.read<std::uint16_t>(at.course);
  const double fromCourse_deg = signedAngle(radial_deg + 180 - course_deg);
  const bool isIls = station && station->isIls;
  const bool inbound = isIls || std::fabs(fromCourse_deg) < 90;
  const double vor_deg = inbound ? fromCourse_deg : signedAngle(180 - fromCourse_deg);
  const std::int8_t deviation =
      isIls ? needle(offCourse_deg(runway, station->place, state.place), fullLocaliser_deg)
            : needle(vor_deg, fullVor_deg);
  const std::uint8_t flags = isIls ? stationActive | localiserTuned : stationActive;
  memory.write<std::int8_t>(at.needle, station ? deviation : std::int8_t{0});
  memory.write<std::uint8_t>(at.backCourse, station ? flags : std::uint8_t{0});
  memory.write<std::uint8_t>(at.toFrom, station ? (inbound ? flagTo : flagFrom) : std::uint8_t{0});
  memory.write(at.radial, station ? angle16(radial_deg) : std::uint16_t{0});
}

void showNav(OffsetMemory& memory, const NavOffsets& at, const AircraftState& state,
             const Runway& runway, const NavStation* station) {
  showCourse(memory, at, state, runway, station);
  showDme(memory, at, state, station);
  writeText(memory, at.id, idSize, station ? station->id : "");
  writeText(memory, at.name, nameSize, station ? station->name : "");
}

void showAdf(OffsetMemory& memory, const AdfOffsets& at, const AircraftState& state,
             const Beacon* beacon) {
  const double bearing = beacon ? bearing_deg(state.place, beacon->place) - state.heading_deg : 0;
  memory.write(at.bearing, angle16(bearing));
  writeText(memory, at.id, idSize, beacon ? beacon->id : "");
  writeText(memory, at.name, at.nameSize, beacon ? beacon->name : "");
}

}  // namespace

NavReceivers::NavReceivers(OffsetMemory& memory, const Runway& runway)
    : memory_(memory),
      runway_(runway),
      stations_(navStationsAround(runway)),
      beacons_(beaconsAround(runway)) {}

void NavReceivers::show(const AircraftState& state) {
  const NavStation* first = tunedNav(nav1.frequency, state);
  showNav(memory_, nav1, state, runway_, first);
  showNav(memory_, nav2, state, runway_, tunedNav(nav2.frequency, state));
  showGlideslope(state, first && first->isIls ? first : nullptr);
  showAdf(memory_, adf1, state, tunedBeacon(adf1.main, adf1.extension, state));
  showAdf(memory_, adf2, state, tunedBeacon(adf2.main, adf2.extension, state));
  showMarkers(state);
}

const NavStation* NavReceivers::tunedNav(std::size_t frequencyOffset,
                                         const AircraftState& state) const {
  const auto frequency = memory_.read<std::uint16_t>(frequencyOffset);
  const auto heard = [&](const NavStation& station) {
    return station.frequency == frequency && hears(station, runway_, state.place);
  };
  const auto found = std::find_if(stations_.begin(), stations_.end(), heard);
  return found == stations_.end() ? nullptr : &*found;
}

const Beacon* NavReceivers::tunedBeacon(std::size_t mainOffset, std::size_t extensionOffset,
                                        const AircraftState& state) const {
  const auto digit = [&](std::size_t offset) { return memory_.read<std::uint8_t>(offset); };
  const int frequency = digit(extensionOffset + 1) * 10000 +
                        packedValue(digit(mainOffset + 1)) * 1000 +
                        packedValue(digit(mainOffset)) * 10 + digit(extensionOffset);
  const auto heard = [&](const Beacon& beacon) {
    return static_cast<int>(beacon.frequency) == frequency &&
           distanceBetween_m(state.place, beacon.place) < beaconRange_m;
  };
  const auto found = std::find_if(beacons_.begin(), beacons_.end(), heard);
  return found == beacons_.end() ? nullptr : &*found;
}

/// Angles on these offsets are 65535 to the turn; the inclination counts backwards. The needle is
/// positive when the glideslope is below the aircraft.
void NavReceivers::showGlideslope(const AircraftState& state, const NavStation* station) {
  const auto angle = [](double angle_deg) {
    return rounded<std::uint16_t>(angle_deg / 360 * 65535);
  };
  const Place antenna = onApproach(runway_, -300);
  const double along_deg =
      signedAngle(bearing_deg(antenna, state.place) - runway_.course_deg - 180);
  const bool received = station && std::fabs(along_deg) < ilsWidth_deg;
  const double elevation_deg =
      std::atan2(state.altitude_m - runway_.elevation_m, distanceBetween_m(state.place, antenna)) /
      radiansPerDegree;
  const std::int8_t deviation = needle(elevation_deg - glideslope_deg, fullGlideslope_deg);
  memory_.write<std::uint16_t>(0x0870, station ? angle(runway_.course_deg) : std::uint16_t{0});
  memory_.write<std::uint16_t>(0x0872, station ? angle(360 - glideslope_deg) : std::uint16_t{0});
  memory_.write<std::int8_t>(0x0C49, received ? deviation : std::int8_t{0});
  memory_.write<std::uint8_t>(0x0C4C, received ? 1 : 0);
}

void NavReceivers::showMarkers(const AircraftState& state) {
  constexpr double beamRadius_m = 300;
  const auto over = [&](double beforeThreshold_m, double radius_m) -> std::uint16_t {
    const Place marker = onApproach(runway_, beforeThreshold_m);
    return distanceBetween_m(state.place, marker) < radius_m ? 1 : 0;
  };
  memory_.write(0x0BB0, over(outerMarker_m, 2 * beamRadius_m));
  memory_.write(0x0BAE, over(middleMarker_m, beamRadius_m));
  memory_.write(0x0BAC, over(innerMarker_m, beamRadius_m / 3));
}

}  // namespace vorlent
