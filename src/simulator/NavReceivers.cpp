#include "simulator/NavReceivers.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "base/simulatorUnits.h"
#include "base/units.h"
#include "simulator/Encoding.h"
#include "simulator/angles.h"

namespace vorlent {
namespace {

struct NavOffsets {
  std::size_t frequency, course, needle, flags, toFrom, radial, id, name;
  std::size_t dmeDistance, dmeSpeed;
};

constexpr NavOffsets Nav1{0x0350, 0x0C4E, 0x0C48, 0x0C4A, 0x0C4B,
                          0x0C50, 0x3000, 0x3006, 0x0C29, 0x0C2E};
constexpr NavOffsets Nav2{0x0352, 0x0C5E, 0x0C59, 0x0C5A, 0x0C5B,
                          0x0C60, 0x301F, 0x3025, 0x0C33, 0x0C38};

struct AdfOffsets {
  std::size_t main, extension, bearing, id, name;
};

constexpr AdfOffsets Adf1{0x034C, 0x0356, 0x0C6A, 0x303E, 0x3044};
constexpr AdfOffsets Adf2{0x02D4, 0x02D6, 0x02D8, 0x02DC, 0x02E2};

constexpr std::size_t IdSize = 6;
constexpr std::size_t NameSize = 25;

constexpr unsigned BackCourseThere = 0x01;
constexpr unsigned LocaliserTuned = 0x02;
constexpr unsigned OnBackCourse = 0x04;
constexpr unsigned StationActive = 0x80;

int packedValue(std::uint8_t packed) { return (packed >> 4) * 10 + (packed & 0x0F); }

std::int8_t needle(double ofFull) {
  constexpr double Full = 127;
  return rounded<std::int8_t>(ofFull * Full);
}

std::uint8_t flagsOf(const NavReading& reading) {
  return static_cast<std::uint8_t>(
      (reading.courseHeard ? StationActive : 0) | (reading.isLocaliser ? LocaliserTuned : 0) |
      (reading.hasBackCourse ? BackCourseThere : 0) | (reading.onBackCourse ? OnBackCourse : 0));
}

std::uint8_t toFromOf(const NavReading& reading) {
  if (reading.toFrom == ToFrom::None) return 0;
  return reading.toFrom == ToFrom::To ? 1 : 2;
}

/// Four characters each, such as "07.4" or "123.", and "250."; semicolons where nothing is
/// received.
void showDme(OffsetMemory& memory, const NavOffsets& at, const std::optional<DmeReading>& dme) {
  constexpr std::size_t FieldSize = 5;
  if (!dme) {
    writeText(memory, at.dmeDistance, FieldSize, ";;.;");
    writeText(memory, at.dmeSpeed, FieldSize, ";;;.");
    return;
  }
  const double distance_nm = dme->distance_m / MetresPerNauticalMile;
  const double speed_kt = dme->speed_m_s / MetresPerSecondPerKnot;
  writeText(memory, at.dmeDistance, FieldSize, dmeDistanceText(distance_nm));
  writeText(memory, at.dmeSpeed, FieldSize, fmt::format("{:03.0f}.", std::min(speed_kt, 999.0)));
}

void showNav(OffsetMemory& memory, const NavOffsets& at, const NavReading& reading) {
  memory.write(at.needle, needle(reading.deviation));
  memory.write(at.flags, flagsOf(reading));
  memory.write(at.toFrom, toFromOf(reading));
  memory.write(at.radial, angle16(reading.radial_deg));
  showDme(memory, at, reading.dme);
  writeText(memory, at.id, IdSize, reading.id);
  writeText(memory, at.name, NameSize, reading.name);
}

/// The direction is that from the runway to the
/// aircraft on its approach, the inclination counts backwards.
void showIls(OffsetMemory& memory, const NavReading& reading) {
  const auto angle = [](double angle_deg) {
    return rounded<std::uint16_t>(angle_deg / 360 * IlsTurn);
  };
  const bool tuned = reading.isLocaliser;
  memory.write(0x0870, tuned ? angle(compass(reading.ilsCourse_deg + 180)) : std::uint16_t{0});
  memory.write(0x0872, tuned ? angle(360 - reading.slope_deg) : std::uint16_t{0});
  memory.write(0x0C49, needle(reading.slopeDeviation.value_or(0)));
  memory.write<std::uint8_t>(0x0C4C, reading.slopeDeviation ? 1 : 0);
}

void showAdf(OffsetMemory& memory, const AdfOffsets& at, const AircraftState& state,
             const Ndb* ndb) {
  memory.write(at.bearing, angle16(ndb ? readNdb_deg(*ndb, state).value_or(0) : 0));
  writeText(memory, at.id, IdSize, ndb ? ndb->id : "");
  writeText(memory, at.name, NameSize, ndb ? ndb->name : "");
}

bool isBetter(const NavReading& a, const NavReading& b) {
  if (a.courseHeard != b.courseHeard) return a.courseHeard;
  return a.distance_m < b.distance_m;
}

}  // namespace

/// 99.95 is the first that one decimal would round to five characters.
std::string dmeDistanceText(double distance_nm) {
  return distance_nm < 99.95 ? fmt::format("{:04.1f}", distance_nm)
                             : fmt::format("{:03.0f}.", distance_nm);
}

void NavReceivers::show(const AircraftState& state) {
  const auto first = tunedNav(Nav1.frequency, Nav1.course, state).value_or(NavReading{});
  showNav(memory_, Nav1, first);
  showIls(memory_, first);
  showNav(memory_, Nav2, tunedNav(Nav2.frequency, Nav2.course, state).value_or(NavReading{}));
  showAdf(memory_, Adf1, state, tunedNdb(Adf1.main, Adf1.extension, state));
  showAdf(memory_, Adf2, state, tunedNdb(Adf2.main, Adf2.extension, state));
  showMarkers(state);
}

/// The frequency has four packed digits behind the 1 of the hundreds: 0x1030 is 110.30.
std::optional<NavReading> NavReceivers::tunedNav(std::size_t frequencyOffset,
                                                 std::size_t courseOffset,
                                                 const AircraftState& state) const {
  if (!state.avionicsPowered) return std::nullopt;
  const int frequency_10kHz = 10000 +
                              packedValue(memory_.read<std::uint8_t>(frequencyOffset + 1)) * 100 +
                              packedValue(memory_.read<std::uint8_t>(frequencyOffset));
  const double course_deg = memory_.read<std::uint16_t>(courseOffset);
  std::optional<NavReading> best;
  const auto consider = [&best](const std::optional<NavReading>& reading) {
    if (reading && (!best || isBetter(*reading, *best))) best = reading;
  };
  for (const Ils& ils : stations_.ils)
    if (ils.frequency_10kHz == frequency_10kHz) consider(readIls(ils, state));
  for (const Vor& vor : stations_.vor)
    if (vor.frequency_10kHz == frequency_10kHz) consider(readVor(vor, course_deg, state));
  return best;
}

/// Kilohertz in packed digits, but thousands and tenths as plain numbers.
const Ndb* NavReceivers::tunedNdb(std::size_t mainOffset, std::size_t extensionOffset,
                                  const AircraftState& state) const {
  if (!state.avionicsPowered) return nullptr;
  const auto byte = [&](std::size_t offset) { return memory_.read<std::uint8_t>(offset); };
  const int frequency_100Hz = byte(extensionOffset + 1) * 10000 +
                              packedValue(byte(mainOffset + 1)) * 1000 +
                              packedValue(byte(mainOffset)) * 10 + byte(extensionOffset);
  const Ndb* nearest = nullptr;
  for (const Ndb& ndb : stations_.ndb)
    if (ndb.frequency_100Hz == frequency_100Hz && readNdb_deg(ndb, state) &&
        (!nearest || distanceBetween_m(state.place, ndb.place) <
                         distanceBetween_m(state.place, nearest->place)))
      nearest = &ndb;
  return nearest;
}

void NavReceivers::showMarkers(const AircraftState& state) {
  constexpr std::array<std::size_t, markerCount> Offsets{0x0BB0, 0x0BAE, 0x0BAC};
  for (const Marker marker : {Outer, Middle, Inner}) {
    const bool lit = std::any_of(stations_.ils.begin(), stations_.ils.end(), [&](const Ils& ils) {
      return state.avionicsPowered && overMarker(ils, marker, state);
    });
    memory_.write<std::uint16_t>(Offsets[marker], lit ? 1 : 0);
  }
}

}  // namespace vorlent
