#include <string>

#include "base/simulatorUnits.h"
#include "base/units.h"
#include "bridge/mappings.h"

namespace vorlent {
namespace {

using enum Width;

constexpr double PerKnot = 128;
constexpr double HpaPerInHg = 33.8638866667;
/// Radians of surface that the interface counts at full aileron and rudder trim.
constexpr double FullAileronTrim_rad = 20 * RadiansPerDegree;
constexpr double FullRudderTrim_rad = 26 * RadiansPerDegree;
constexpr int Engines = 4;

void addPlace(Mapping& fg) {
  fg.in(0x0560, S64, "latitude", {{"/position/latitude-deg", 10001750.0 / 90 * FixedPoint}});
  fg.in(0x0568, S64, "longitude", {{"/position/longitude-deg", FixedPoint * FixedPoint / 360}});
  fg.in(0x0570, S64, "altitude", {{"/position/altitude-ft", MetresPerFoot * FixedPoint}});
  fg.in(0x0B4C, S16, "elevation of the ground", {{"/position/ground-elev-m", 1}});
  fg.in(0x0366, U16, "on the ground", {{"/gear/gear[1]/wow", 1}});
  fg.in(0x0366, U16, "on the ground", {}).onlyFor("ufo");
  fg.in(0x02A0, U16, "magnetic variation", {{"/environment/magnetic-variation-deg", 1}}).turns();
}

void addMotion(Mapping& fg) {
  fg.in(0x0578, S32, "pitch", {{"/orientation/pitch-deg", -1}}).turns();
  fg.in(0x057C, S32, "bank", {{"/orientation/roll-deg", -1}}).turns();
  fg.in(0x0580, U32, "true heading", {{"/orientation/heading-deg", 1}}).turns();
  fg.in(0x02B4, U32, "ground speed",
        {{"/velocities/groundspeed-kt", MetresPerSecondPerKnot * 65536}});
  fg.in(0x02B8, U32, "true airspeed",
        {{"/instrumentation/airspeed-indicator/true-speed-kt", PerKnot}});
  fg.in(0x02BC, U32, "indicated airspeed", {{"/velocities/airspeed-kt", PerKnot}});
  fg.in(0x02C8, S16, "vertical speed", {{"/velocities/vertical-speed-fps", MetresPerFoot * 256}});
  fg.in(0x11C6, U16, "Mach", {{"/velocities/mach", 20480}});
  fg.in(0x11BA, S16, "load factor", {{"/accelerations/pilot-g", 625}});
  fg.in(0x11BE, U16, "angle of attack", {{"/orientation/alpha-deg", -1}}).turns().add(180);
  fg.in(0x036E, S8, "ball", {{"/instrumentation/slip-skid-ball/indicated-slip-skid", 127}});
  fg.in(0x037C, S16, "turn rate", {{"/instrumentation/turn-indicator/indicated-turn-rate", 512}});
}

void addAir(Mapping& fg) {
  fg.in(0x0330, U16, "altimeter setting",
        {{"/instrumentation/altimeter/setting-inhg", HpaPerInHg * 16}})
      .written(25, 33)
      .byteByByte();
  fg.in(0x0EC6, U16, "pressure at sea level",
        {{"/environment/pressure-sea-level-inhg", HpaPerInHg * 16}});
  fg.in(0x0E8C, S16, "outside temperature", {{"/environment/temperature-degc", 256}});
  fg.in(0x0E90, U16, "wind", {{"/environment/wind-speed-kt", 1}});
  fg.in(0x0E92, U16, "wind from", {{"/environment/wind-from-heading-deg", 1}}).turns();
}

void addEngine(Mapping& fg, int engine) {
  const auto at = [engine](int offset) {
    return static_cast<std::uint16_t>(offset + EngineRecord_bytes * engine);
  };
  const std::string n = std::to_string(engine);
  const std::string shows = "/engines/engine[" + n + "]/";
  const std::string steers = "/controls/engines/engine[" + n + "]/";
  const std::string which = " of engine " + std::to_string(engine + 1);
  fg.in(at(0x088C), S16, "thrust lever" + which, {{steers + "throttle", FullScale}}).streamed(0, 1);
  fg.in(at(0x0890), U16, "mixture or start lever" + which, {{steers + "mixture", FullScale}})
      .written(0, 1);
  fg.in(at(0x0894), U16, "running" + which, {{shows + "running", 1}});
  fg.in(at(0x0896), U16, "N2" + which, {{shows + "n2", FullScale / 100}});
  fg.in(at(0x0898), U16, "N1" + which, {{shows + "n1", FullScale / 100}});
  fg.in(at(0x08BA), U16, "oil pressure" + which, {{shows + "oil-pressure-psi", FullScale / 55}});
  fg.in(at(0x0918), Double, "fuel flow" + which, {{shows + "fuel-flow_pph", 1}});
  fg.in(static_cast<std::uint16_t>(0x2030 + 0x100 * engine), Double, "EPR" + which,
        {{shows + "epr", 1}});
  fg.in(static_cast<std::uint16_t>(0x3B70 - 0xC0 * engine), Double, "EGT" + which,
        {{shows + "egt-degf", 1}})
      .add(RankineAtZeroFahrenheit);
}

/// In the c172p one of two engines is the present one, whose levers become those of engine 1 with
/// every frame.
void addLeversOfC172p(Mapping& fg) {
  const std::string steers = "/controls/engines/current-engine/";
  fg.in(0x088C, S16, "thrust lever of the present engine", {{steers + "throttle", FullScale}})
      .streamed(0, 1)
      .onlyFor("c172p");
  fg.in(0x0890, U16, "mixture of the present engine", {{steers + "mixture", FullScale}})
      .written(0, 1)
      .onlyFor("c172p");
}

/// FlightGear does not tell how many engines there are; what is a jet and what is not it does not
/// tell either. A big twin is taken for granted.
void addEngines(Mapping& fg) {
  for (int engine = 0; engine < Engines; ++engine) addEngine(fg, engine);
  addLeversOfC172p(fg);
  std::vector<Term> running;
  running.reserve(Engines);
  for (int engine = 0; engine < Engines; ++engine)
    running.push_back({"/engines/engine[" + std::to_string(engine) + "]/running",
                       static_cast<double>(1U << static_cast<unsigned>(engine))});
  fg.in(0x0889, U8, "engines that run", running);
  fg.constant(0x0AEC, U16, "number of engines: two", 2);
  fg.constant(0x0609, U8, "kind of engines: jets", 1);
  for (const char* single : {"c172", "ufo"})
    fg.constant(0x0AEC, U16, "number of engines: one", 1).onlyFor(single);
  fg.constant(0x0609, U8, "kind of engines: pistons", 0).onlyFor("c172");
  // One of the two exists, by the flight model that the aircraft has; the other reads 0.
  fg.in(0x30C0, Double, "gross weight",
        {{"/fdm/jsbsim/inertia/weight-lbs", 1}, {"/yasim/gross-weight-lbs", 1}});
}

void addControls(Mapping& fg) {
  // FlightGear counts the elevator nose down.
  fg.in(0x0BB2, S16, "elevator", {{"/controls/flight/elevator", -FullTravel}}).written(-1, 1);
  fg.in(0x0BB6, S16, "aileron", {{"/controls/flight/aileron", FullTravel}}).written(-1, 1);
  fg.in(0x0BBA, S16, "rudder", {{"/controls/flight/rudder", FullTravel}}).written(-1, 1);
  fg.in(0x0BC0, S16, "elevator trim", {{"/controls/flight/elevator-trim", -FullTravel}})
      .streamed(-1, 1);
  fg.in(0x2EB0, Double, "aileron trim", {{"/controls/flight/aileron-trim", FullAileronTrim_rad}})
      .streamed(-1, 1);
  fg.in(0x2EC0, Double, "rudder trim", {{"/controls/flight/rudder-trim", FullRudderTrim_rad}})
      .streamed(-1, 1);
  // It has no aileron trim: the aileron itself, whose full travel is a bank of its own.
  fg.in(0x2EB0, Double, "aileron", {{"/controls/flight/aileron", FullAileronTrim_rad}})
      .written(-1, 1)
      .onlyFor("ufo");
  fg.in(0x0BC4, S16, "left brake", {{"/controls/gear/brake-left", FullBrake}}).written(0, 1);
  fg.in(0x0BC6, S16, "right brake", {{"/controls/gear/brake-right", FullBrake}}).written(0, 1);
  fg.in(0x0BC8, U16, "parking brake", {{"/controls/gear/brake-parking", FullBrake}}).written(0, 1);
  fg.in(0x0BD0, U32, "spoiler lever", {{"/controls/flight/speedbrake", FullTravel}}).written(0, 1);
  fg.in(0x0BDC, U32, "flap lever", {{"/controls/flight/flaps", FullTravel}}).written(0, 1);
  fg.in(0x0BE0, U32, "flaps", {{"/surface-positions/flap-pos-norm", FullTravel}});
  fg.in(0x0BE4, U32, "right flaps", {{"/surface-positions/flap-pos-norm", FullTravel}});
  fg.in(0x0BE8, U32, "gear lever", {{"/controls/gear/gear-down", FullTravel}}).written(0, 1);
  fg.in(0x0BEC, U32, "nose gear", {{"/gear/gear[0]/position-norm", FullTravel}});
  fg.in(0x0BF4, U32, "left gear", {{"/gear/gear[1]/position-norm", FullTravel}});
  fg.in(0x0BF0, U32, "right gear", {{"/gear/gear[2]/position-norm", FullTravel}});
}

void addTime(Mapping& fg) {
  fg.in(0x023A, U8, "UTC second", {{"/sim/time/utc/second", 1}});
  fg.in(0x023B, U8, "UTC hour", {{"/sim/time/utc/hour", 1}});
  fg.in(0x023C, U8, "UTC minute", {{"/sim/time/utc/minute", 1}});
  fg.in(0x0264, U8, "pause", {{"/sim/freeze/master", 1}}).written(0, 1);
}

void addLights(Mapping& fg) {
  fg.in(0x0280, U8, "navigation lights", {{"/controls/lighting/nav-lights", 1}}).written(0, 1);
  fg.in(0x0281, U8, "strobes", {{"/controls/lighting/strobe", 1}}).written(0, 1);
  fg.in(0x028C, U8, "landing lights", {{"/controls/lighting/landing-lights", 1}}).written(0, 1);
  fg.in(0x029C, U8, "pitot heat", {{"/controls/anti-ice/pitot-heat", 1}}).written(0, 1);
}

/// Two digits before and two behind the point; the 1 of the hundreds of MHz is left out.
void addFrequency(Mapping& fg, std::uint16_t offset, const std::string& name,
                  const std::string& radio, const std::string& which, double least_MHz,
                  double most_MHz) {
  fg.in(offset, U16, name, {{"/instrumentation/" + radio + "/frequencies/" + which, 100}})
      .digits()
      .add(-10000)
      .written(least_MHz, most_MHz);
}

void addRadios(Mapping& fg) {
  addFrequency(fg, 0x034E, "COM1", "comm[0]", "selected-mhz", 118, 137);
  addFrequency(fg, 0x3118, "COM2", "comm[1]", "selected-mhz", 118, 137);
  addFrequency(fg, 0x311A, "COM1 standby", "comm[0]", "standby-mhz", 118, 137);
  addFrequency(fg, 0x311C, "COM2 standby", "comm[1]", "standby-mhz", 118, 137);
  addFrequency(fg, 0x0350, "NAV1", "nav[0]", "selected-mhz", 108, 118);
  addFrequency(fg, 0x0352, "NAV2", "nav[1]", "selected-mhz", 108, 118);
  addFrequency(fg, 0x311E, "NAV1 standby", "nav[0]", "standby-mhz", 108, 118);
  addFrequency(fg, 0x3120, "NAV2 standby", "nav[1]", "standby-mhz", 108, 118);
  fg.in(0x0354, U16, "transponder", {{"/instrumentation/transponder/id-code", 1}})
      .digits()
      .written(0, 7777);
}

void addReceiver(Mapping& fg, const std::string& nav, const std::string& name, std::uint16_t needle,
                 std::uint16_t toFrom, std::uint16_t course, std::uint16_t radial) {
  const std::string at = "/instrumentation/" + nav + "/";
  // Full deflection is 10 degrees of a VOR and 2.5 of a localiser, and both are 1 here.
  fg.in(needle, S8, name + " course needle", {{at + "heading-needle-deflection-norm", 127}});
  fg.in(toFrom, U8, name + " to or from", {{at + "to-flag", 1}, {at + "from-flag", 2}});
  fg.in(course, U16, name + " course", {{at + "radials/selected-deg", 1}}).written(0, 360);
  fg.in(radial, U16, name + " radial", {{at + "radials/actual-deg", 1}}).turns();
}

void addReceivers(Mapping& fg) {
  addReceiver(fg, "nav[0]", "NAV1", 0x0C48, 0x0C4B, 0x0C4E, 0x0C50);
  addReceiver(fg, "nav[1]", "NAV2", 0x0C59, 0x0C5B, 0x0C5E, 0x0C60);
  // Above the slope the needle is down, here as there.
  fg.in(0x0C49, S8, "NAV1 glideslope needle",
        {{"/instrumentation/nav[0]/gs-needle-deflection-norm", -127}});
  fg.in(0x0C4A, U8, "NAV1 flags",
        {{"/instrumentation/nav[0]/nav-loc", 2}, {"/instrumentation/nav[0]/in-range", 128}});
  fg.in(0x0C4C, U8, "NAV1 glideslope received", {{"/instrumentation/nav[0]/gs-in-range", 1}});
  fg.in(0x0870, U16, "back along the approach",
        {{"/instrumentation/nav[0]/radials/target-radial-deg", 1}})
      .turns(Coding::ApproachTurn)
      .add(180);
  MappingRow& distance =
      fg.in(0x0C29, Text, "DME1 distance", {{"/instrumentation/dme/indicated-distance-nm", 1}});
  distance.coding = Coding::Distance;
}

void addAutopilot(Mapping& fg) {
  fg.in(0x07CC, U16, "selected heading", {{"/autopilot/settings/heading-bug-deg", 1}})
      .turns()
      .written(0, 360);
  fg.in(0x07D4, S32, "selected altitude",
        {{"/autopilot/settings/target-altitude-ft", MetresPerFoot * 65536}})
      .written(-2000, 65000)
      .byteByByte();
  fg.in(0x07F2, S16, "selected vertical speed", {{"/autopilot/settings/vertical-speed-fpm", 1}})
      .written(-10000, 10000);
}

}  // namespace

Mapping flightGearMapping() {
  Mapping fg;
  fg.simulator = "FlightGear";
  fg.source =
      "wiki.flightgear.org/Property_tree, and the files README.protocol, README.properties and "
      "README.jsbsim of FlightGear's data";
  addCommonRows(fg);
  addTime(fg);
  addLights(fg);
  addPlace(fg);
  addMotion(fg);
  addAir(fg);
  addEngines(fg);
  addControls(fg);
  addRadios(fg);
  addReceivers(fg);
  addAutopilot(fg);
  fg.missing.insert(fg.missing.end(),
                    {{0x02C4, "barber pole", "no property that aircraft share"},
                     {0x0238, "local time", "UTC is there"},
                     {0x0C5A, "NAV2 flags", "not asked"},
                     {0x11D0, "total temperature", "no property that aircraft share"}});
  return fg;
}

}  // namespace vorlent
