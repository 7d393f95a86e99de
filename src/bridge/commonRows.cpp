#include <string>

#include "base/simulatorUnits.h"
#include "bridge/mappings.h"

namespace vorlent {
namespace {

using enum Width;

/// The switches of the simulator's own autopilot would take the aircraft out of the cockpit's
/// hands. They stay in the bridge, and its cockpit finds there what it left.
void keepAutopilot(Mapping& mapping) {
  mapping.kept(0x0278, U8, "automatic coordination");
  mapping.kept(0x07BC, U32, "autopilot master");
  mapping.kept(0x07C0, U32, "wing leveller");
  mapping.kept(0x07C4, U32, "NAV hold");
  mapping.kept(0x07C8, U32, "heading hold");
  mapping.kept(0x07D0, U32, "altitude hold");
  mapping.kept(0x07D8, U32, "attitude hold");
  mapping.kept(0x07DC, U32, "speed hold");
  mapping.kept(0x07E2, U16, "selected airspeed", 200);
  mapping.kept(0x07E4, U32, "Mach hold");
  mapping.kept(0x07E8, U16, "selected Mach", 0.78 * UnitsPerMach);
  mapping.kept(0x07EC, U32, "vertical speed hold");
  mapping.kept(0x07FC, U32, "glideslope hold");
  mapping.kept(0x0800, U32, "approach hold");
  mapping.kept(0x0804, U32, "back course hold");
  mapping.kept(0x0808, U32, "yaw damper");
  mapping.kept(0x080C, U32, "TO/GA");
  mapping.kept(0x0810, U32, "autothrottle");
  mapping.kept(0x2EE0, S32, "flight director");
}

void keepOthers(Mapping& mapping) {
  mapping.kept(0x033C, U8, "mark of the server");
  mapping.kept(0x0378, U16, "DME that is shown", 1);
  mapping.kept(0x0888, U8, "engines that a command is for", 15);
  mapping.kept(0x0BCC, U8, "spoilers armed");
  mapping.kept(0x132C, U8, "NAV/GPS switch");
}

/// What neither simulator is asked for.
void listMissing(Mapping& mapping) {
  const std::string differs = "they differ from aircraft to aircraft";
  mapping.missing = {
      {0x0282, "third byte of the lights", "no switch of the cockpit lies there"},
      {0x02D4, "ADF2: frequency, bearing, names", "not asked", 0x02F9},
      {0x034C, "ADF1: frequency", "not asked"},
      {0x0356, "ADF1: tenths and thousands of its frequency", "not asked", 0x0357},
      {0x05DC, "slew", "the simulator has another, or none"},
      {0x07E0, "third word of the speed hold", "the cockpit has its own"},
      {0x07F4, "N1 hold and its target", "the cockpit has its own", 0x07F9},
      {0x088E,
       "the rest of the engines: propellers, starters, anti-ice, oil, vibration, hydraulics, "
       "cylinders, and EPR, EGT, ITT and torque in steps",
       differs, 0x0AEB},
      {0x0AF8, "fuel selector", "tanks differ from aircraft to aircraft"},
      {0x0B18, "number at 0B18", "no such value"},
      {0x0B71, "failure at 0B71", "not asked"},
      {0x0B74, "levels and capacities of the tanks", "tanks differ from aircraft to aircraft",
       0x0BAB},
      {0x0BAC, "marker beacons", "not asked", 0x0BB1},
      {0x0BCA, "brake indicator", "no such value"},
      {0x0872, "slope of the glide path", "no such value"},
      {0x0C2E, "DME1 speed, DME2", "not asked", 0x0C3C},
      {0x0C3E, "gyro drift", "no such value"},
      {0x0C6A, "ADF1: bearing", "not asked"},
      {0x0E5A, "EFIS switches", "the cockpit has its own", 0x0E69},
      {0x0EEE, "word at 0EEE", "no such value"},
      {0x2010,
       "the rest of the turbines: ITT and torque, N1 and fuel flow of turboprops, propellers",
       differs, 0x270F},
      {0x281C, "electrical switches and values", differs, 0x28BF},
      {0x2E80, "avionics switches", differs, 0x2E8B},
      {0x2EC8, "switch at 2EC8", "no such value"},
      {0x2EE8, "flight director bars", "the cockpit has its own", 0x2EF7},
      {0x3000, "names of the stations", "text is not in the stream", 0x305F},
      {0x32F8, "failure at 32F8", "not asked"},
      {0x3BD6, "failures", "not asked", 0x3BE7},
  };
}

}  // namespace

void addCommonRows(Mapping& mapping) {
  keepAutopilot(mapping);
  keepOthers(mapping);
  mapping.constant(0x0274, U16, "frame rate, 30 a second", 32768.0 / 30);
  mapping.constant(0x0AF4, U16, "density of fuel, 6.7 lb/gal", 6.7 * 256);
  mapping.constant(0x0B00, S16, "lower limit of the thrust levers: no reverse", 0);
  mapping.constant(0x3BFA, U16, "from one flap detent to the next: nine", NineDetentsIncrement);
  listMissing(mapping);
}

}  // namespace vorlent
