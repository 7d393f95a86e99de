#include <string>

#include "base/simulatorUnits.h"
#include "base/units.h"
#include "bridge/mappings.h"

namespace vorlent {
namespace {

using enum Width;

constexpr double HpaPerInHg = 33.8638866667;
constexpr double FullAileronTrim_rad = 20 * RadiansPerDegree;
constexpr double FullRudderTrim_rad = 26 * RadiansPerDegree;
constexpr double SecondsPerHour = 3600;
constexpr int Engines = 4;
/// What X-Plane's gauges call two and a half dots is the end of the needle.
constexpr double NeedlePerDot = 127 / 2.5;

/// The names of what comes with the position instead of by name begin with "RPOS/".
void addPlace(Mapping& xp) {
  xp.in(0x0560, S64, "latitude", {{"RPOS/latitude", 10001750.0 / 90 * FixedPoint}});
  xp.in(0x0568, S64, "longitude", {{"RPOS/longitude", FixedPoint * FixedPoint / 360}});
  xp.in(0x0570, S64, "altitude", {{"RPOS/elevation", FixedPoint}});
  xp.in(0x0B4C, S16, "elevation of the ground", {{"RPOS/elevation", 1}, {"RPOS/height", -1}});
  xp.in(0x0366, U16, "on the ground", {{"sim/flightmodel/failures/onground_any", 1}});
  // Which way X-Plane counts the variation its own list leaves open; the two headings do not.
  xp.in(0x02A0, U16, "magnetic variation",
        {{"sim/flightmodel/position/true_psi", 1}, {"sim/flightmodel/position/mag_psi", -1}})
      .turns();
}

void addMotion(Mapping& xp) {
  const std::string at = "sim/flightmodel/position/";
  xp.in(0x0578, S32, "pitch", {{"RPOS/pitch", -1}}).turns();
  xp.in(0x057C, S32, "bank", {{"RPOS/roll", -1}}).turns();
  xp.in(0x0580, U32, "true heading", {{"RPOS/heading", 1}}).turns();
  xp.in(0x02B4, U32, "ground speed", {{at + "groundspeed", 65536}});
  xp.in(0x02B8, U32, "true airspeed", {{at + "true_airspeed", 128 / MetresPerSecondPerKnot}});
  xp.in(0x02BC, U32, "indicated airspeed", {{at + "indicated_airspeed", 128}});
  xp.in(0x02C4, U32, "barber pole", {{"sim/aircraft/view/acf_Vmo", 128}});
  xp.in(0x02C8, S16, "vertical speed", {{at + "vh_ind", 256}});
  xp.in(0x11C6, U16, "Mach", {{"sim/flightmodel/misc/machno", 20480}});
  xp.in(0x11BA, S16, "load factor", {{"sim/flightmodel2/misc/gforce_normal", 625}});
  xp.in(0x11BE, U16, "angle of attack", {{at + "alpha", -1}}).turns().add(180);
}

void addAir(Mapping& xp) {
  xp.in(0x0330, U16, "altimeter setting",
        {{"sim/cockpit2/gauges/actuators/barometer_setting_in_hg_pilot", HpaPerInHg * 16}})
      .written(25, 33)
      .byteByByte();
  xp.in(0x0E8C, S16, "outside temperature",
        {{"sim/cockpit2/temperature/outside_air_temp_degc", 256}});
  xp.in(0x0E90, U16, "wind", {{"sim/cockpit2/gauges/indicators/wind_speed_kts", 1}});
  xp.in(0x0E92, U16, "wind from",
        {{"sim/cockpit2/gauges/indicators/wind_heading_deg_mag", 1},
         {"sim/flightmodel/position/true_psi", 1},
         {"sim/flightmodel/position/mag_psi", -1}})
      .turns();
}

void addEngine(Mapping& xp, int engine) {
  const auto at = [engine](int offset) {
    return static_cast<std::uint16_t>(offset + EngineRecord_bytes * engine);
  };
  const std::string n = "[" + std::to_string(engine) + "]";
  const std::string which = " of engine " + std::to_string(engine + 1);
  const std::string steers = "sim/cockpit2/engine/actuators/";
  xp.in(at(0x088C), S16, "thrust lever" + which, {{steers + "throttle_ratio" + n, FullScale}})
      .streamed(0, 1);
  xp.in(at(0x0890), U16, "mixture or start lever" + which,
        {{steers + "mixture_ratio" + n, FullScale}})
      .written(0, 1);
  xp.in(at(0x0894), U16, "running" + which, {{"sim/flightmodel/engine/ENGN_running" + n, 1}});
  xp.in(at(0x0896), U16, "N2" + which,
        {{"sim/flightmodel2/engines/N2_percent" + n, FullScale / 100}});
  xp.in(at(0x0898), U16, "N1" + which,
        {{"sim/flightmodel2/engines/N1_percent" + n, FullScale / 100}});
  xp.in(at(0x08BA), U16, "oil pressure" + which,
        {{"sim/cockpit2/engine/indicators/oil_pressure_psi" + n, FullScale / 55}});
  xp.in(at(0x0918), Double, "fuel flow" + which,
        {{"sim/cockpit2/engine/indicators/fuel_flow_kg_sec" + n,
          SecondsPerHour / KilogramsPerPound}});
  xp.in(static_cast<std::uint16_t>(0x2030 + 0x100 * engine), Double, "EPR" + which,
        {{"sim/cockpit2/engine/indicators/EPR_ratio" + n, 1}});
  xp.in(static_cast<std::uint16_t>(0x3B70 - 0xC0 * engine), Double, "EGT" + which,
        {{"sim/flightmodel/engine/ENGN_EGT_c" + n, 1.8}})
      .add(KelvinAtZeroCelsius * 1.8);
}

/// X-Plane's number for the kind of an engine has no sum that makes ours of it: a jet is taken for
/// granted, and pistons for the aircraft that are known to have them.
void addEngines(Mapping& xp) {
  for (int engine = 0; engine < Engines; ++engine) addEngine(xp, engine);
  std::vector<Term> running;
  running.reserve(Engines);
  for (int engine = 0; engine < Engines; ++engine)
    running.push_back({"sim/flightmodel/engine/ENGN_running[" + std::to_string(engine) + "]",
                       static_cast<double>(1U << static_cast<unsigned>(engine))});
  xp.in(0x0889, U8, "engines that run", running);
  xp.in(0x0AEC, U16, "number of engines", {{"sim/aircraft/engine/acf_num_engines", 1}});
  xp.constant(0x0609, U8, "kind of engines: jets", 1);
  for (const char* piston : {"C172", "BE58"})
    xp.constant(0x0609, U8, "kind of engines: pistons", 0).onlyFor(piston);
  xp.in(0x30C0, Double, "gross weight",
        {{"sim/flightmodel/weight/m_total", 1 / KilogramsPerPound}});
}

void addControls(Mapping& xp) {
  const std::string at = "sim/cockpit2/controls/";
  xp.in(0x0BB2, S16, "elevator", {{at + "yoke_pitch_ratio", FullTravel}});
  xp.in(0x0BB6, S16, "aileron", {{at + "yoke_roll_ratio", FullTravel}});
  xp.in(0x0BBA, S16, "rudder", {{at + "yoke_heading_ratio", FullTravel}});
  xp.in(0x0BC0, S16, "elevator trim", {{at + "elevator_trim", FullTravel}}).streamed(-1, 1);
  xp.in(0x2EB0, Double, "aileron trim", {{at + "aileron_trim", FullAileronTrim_rad}})
      .streamed(-1, 1);
  xp.in(0x2EC0, Double, "rudder trim", {{at + "rudder_trim", FullRudderTrim_rad}}).streamed(-1, 1);
  xp.in(0x0BC4, S16, "left brake", {{at + "left_brake_ratio", FullBrake}}).written(0, 1);
  xp.in(0x0BC6, S16, "right brake", {{at + "right_brake_ratio", FullBrake}}).written(0, 1);
  xp.in(0x0BC8, U16, "parking brake", {{at + "parking_brake_ratio", FullBrake}}).written(0, 1);
  xp.in(0x0BD0, U32, "spoiler lever", {{at + "speedbrake_ratio", FullTravel}}).written(0, 1);
  xp.in(0x0BDC, U32, "flap lever", {{at + "flap_ratio", FullTravel}}).written(0, 1);
  const std::string flaps = "sim/flightmodel2/controls/flap_handle_deploy_ratio";
  xp.in(0x0BE0, U32, "flaps", {{flaps, FullTravel}});
  xp.in(0x0BE4, U32, "right flaps", {{flaps, FullTravel}});
  xp.in(0x0BE8, U32, "gear lever", {{at + "gear_handle_down", FullTravel}}).written(0, 1);
  const std::string gear = "sim/flightmodel2/gear/deploy_ratio";
  xp.in(0x0BEC, U32, "nose gear", {{gear + "[0]", FullTravel}});
  xp.in(0x0BF4, U32, "left gear", {{gear + "[1]", FullTravel}});
  xp.in(0x0BF0, U32, "right gear", {{gear + "[2]", FullTravel}});
}

void addTime(Mapping& xp) {
  const std::string at = "sim/cockpit2/clock_timer/";
  xp.in(0x0238, U8, "local hour", {{at + "local_time_hours", 1}});
  xp.in(0x0239, U8, "local minute", {{at + "local_time_minutes", 1}});
  xp.in(0x023A, U8, "second", {{at + "zulu_time_seconds", 1}});
  xp.in(0x023B, U8, "UTC hour", {{at + "zulu_time_hours", 1}});
  xp.in(0x023C, U8, "UTC minute", {{at + "zulu_time_minutes", 1}});
  xp.in(0x0264, U8, "pause", {{"sim/time/paused", 1}}).byCommand("sim/operation/pause_toggle");
}

void addLights(Mapping& xp) {
  const std::string at = "sim/cockpit2/switches/";
  xp.in(0x0280, U8, "navigation lights", {{at + "navigation_lights_on", 1}}).written(0, 1);
  xp.in(0x0281, U8, "strobes", {{at + "strobe_lights_on", 1}}).written(0, 1);
  xp.in(0x028C, U8, "landing lights", {{at + "landing_lights_on", 1}}).written(0, 1);
  xp.in(0x029C, U8, "pitot heat", {{"sim/cockpit2/ice/ice_pitot_heat_on_pilot", 1}}).written(0, 1);
}

/// X-Plane counts in units of 10 kHz; the 1 of the hundreds of MHz is left out here.
void addFrequency(Mapping& xp, std::uint16_t offset, const std::string& name,
                  const std::string& dataref, double least, double most) {
  xp.in(offset, U16, name, {{"sim/cockpit/radios/" + dataref, 1}})
      .digits()
      .add(-10000)
      .written(least, most);
}

void addRadios(Mapping& xp) {
  addFrequency(xp, 0x034E, "COM1", "com1_freq_hz", 11800, 13699);
  addFrequency(xp, 0x3118, "COM2", "com2_freq_hz", 11800, 13699);
  addFrequency(xp, 0x311A, "COM1 standby", "com1_stdby_freq_hz", 11800, 13699);
  addFrequency(xp, 0x311C, "COM2 standby", "com2_stdby_freq_hz", 11800, 13699);
  addFrequency(xp, 0x0350, "NAV1", "nav1_freq_hz", 10800, 11795);
  addFrequency(xp, 0x0352, "NAV2", "nav2_freq_hz", 10800, 11795);
  addFrequency(xp, 0x311E, "NAV1 standby", "nav1_stdby_freq_hz", 10800, 11795);
  addFrequency(xp, 0x3120, "NAV2 standby", "nav2_stdby_freq_hz", 10800, 11795);
  xp.in(0x0354, U16, "transponder", {{"sim/cockpit/radios/transponder_code", 1}})
      .digits()
      .written(0, 7777);
}

void addReceivers(Mapping& xp) {
  const std::string at = "sim/cockpit2/radios/";
  xp.in(0x0C48, S8, "NAV1 course needle", {{at + "indicators/nav1_hdef_dots_pilot", NeedlePerDot}});
  xp.in(0x0C59, S8, "NAV2 course needle", {{at + "indicators/nav2_hdef_dots_pilot", NeedlePerDot}});
  xp.in(0x0C49, S8, "NAV1 glideslope needle",
        {{at + "indicators/nav1_vdef_dots_pilot", NeedlePerDot}});
  // X-Plane's kinds of stations have no sum that makes ours of them: what sends a glideslope is a
  // localiser.
  const std::string slope = at + "indicators/nav1_display_vertical";
  xp.in(0x0C4A, U8, "NAV1 flags", {{at + "indicators/nav1_display_horizontal", 128}, {slope, 2}});
  xp.in(0x0C5A, U8, "NAV2 flags",
        {{at + "indicators/nav2_display_horizontal", 128},
         {at + "indicators/nav2_display_vertical", 2}});
  xp.in(0x0C4C, U8, "NAV1 glideslope received", {{slope, 1}});
  xp.in(0x0C4B, U8, "NAV1 to or from", {{at + "indicators/nav1_flag_from_to_pilot", 1}});
  xp.in(0x0C5B, U8, "NAV2 to or from", {{at + "indicators/nav2_flag_from_to_pilot", 1}});
  xp.in(0x0C4E, U16, "NAV1 course", {{at + "actuators/nav1_obs_deg_mag_pilot", 1}}).written(0, 360);
  xp.in(0x0C5E, U16, "NAV2 course", {{at + "actuators/nav2_obs_deg_mag_pilot", 1}}).written(0, 360);
  MappingRow& distance =
      xp.in(0x0C29, Text, "DME1 distance", {{at + "indicators/nav1_dme_distance_nm", 1}});
  distance.coding = Coding::Distance;
}

void addAutopilot(Mapping& xp) {
  const std::string at = "sim/cockpit2/autopilot/";
  xp.in(0x07CC, U16, "selected heading", {{at + "heading_dial_deg_mag_pilot", 1}})
      .turns()
      .written(0, 360);
  xp.in(0x07D4, S32, "selected altitude", {{at + "altitude_dial_ft", MetresPerFoot * 65536}})
      .written(-2000, 65000)
      .byteByByte();
  xp.in(0x07F2, S16, "selected vertical speed", {{at + "vvi_dial_fpm", 1}}).written(-10000, 10000);
}

}  // namespace

Mapping xPlaneMapping() {
  Mapping xp;
  xp.simulator = "X-Plane";
  xp.source =
      "developer.x-plane.com/datarefs, and \"Exchanging Data with X-Plane\", which comes with it";
  addCommonRows(xp);
  addTime(xp);
  addLights(xp);
  addPlace(xp);
  addMotion(xp);
  addAir(xp);
  addEngines(xp);
  addControls(xp);
  addRadios(xp);
  addReceivers(xp);
  addAutopilot(xp);
  xp.missing.insert(xp.missing.end(),
                    {{0x0870, "back along the approach",
                      "no dataref; the localiser is flown by the "
                      "course that is set"},
                     {0x0C50, "NAV1 radial", "not asked"},
                     {0x0C60, "NAV2 radial", "not asked"},
                     {0x0EC6, "pressure at sea level", "another dataref in each version"},
                     {0x036E, "ball", "not asked"},
                     {0x037C, "turn rate", "not asked"},
                     {0x11D0, "total temperature", "not asked"}});
  return xp;
}

}  // namespace vorlent
