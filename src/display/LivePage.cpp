#include "display/LivePage.h"

#include <array>

#include "display/format.h"

namespace vorlent {
namespace {

using Lines = std::vector<std::string>;

constexpr std::size_t EngineColumnWidth = 12;

std::string fixedField(const Record& record, std::string_view name, int decimals) {
  return fixedText(record.number(name), decimals);
}

std::string signedField(const Record& record, std::string_view name, int decimals) {
  return signedText(record.number(name), decimals);
}

/// "-" stands for a blank annunciator.
std::string mode(const Record& record, std::string_view name) {
  const std::string& text = record.text(name);
  return text.empty() || text == "_" ? "-" : text;
}

std::string title(const PageStatus& status) {
  return "VORLENT DISPLAY   " + status.server + "   " + status.folder + "   record " +
         std::to_string(status.recordCount);
}

void addFlight(Lines& lines, const Record& r) {
  lines.push_back("TIME " + r.text("LocalTimeText(1)") + ":" + r.text("LocalTimeText(2)") + ":" +
                  r.text("LocalTimeText(3)") + "  UTC " + clockText(r.number("ZuluTime")) + "   " +
                  latitudeText(r.number("Latitude")) + " " + longitudeText(r.number("Longitude")) +
                  "   VAR " + signedField(r, "MagVar", 1));
  lines.push_back("ALT  " + fixedField(r, "AircraftAltitude", 0) + " ft   RA " +
                  r.text("RadioAltitude") + " ft   V/S " + signedField(r, "VerticalSpeed", 0) +
                  " ft/min   QNH " + fixedField(r, "StateValues(14)", 1) + " hPa");
  lines.push_back("IAS  " + fixedField(r, "Ias", 1) + " kt   TAS " + r.text("Tas") + " kt   GS " +
                  r.text("GroundSpeed") + " kt   MACH " + fixedField(r, "Mach", 3) + "   LIMIT " +
                  fixedField(r, "BarberPole", 0) + " kt");
  lines.push_back("HDG  " + fixedField(r, "MagHeading", 1) + "   PITCH " +
                  signedField(r, "Pitch", 1) + "   BANK " + bankText(r.number("Bank")) + "   OAT " +
                  signedField(r, "StateValues(18)", 1) + " C   WIND " +
                  fixedField(r, "WindDirection", 0) + "/" + fixedField(r, "WindSpeedKt", 0));
}

/// Without the "ap" that most of the names begin with.
std::string engagedBits(const Record& record) {
  std::string names;
  for (int bitSet = 1; bitSet <= ApBitSets; ++bitSet)
    for (const auto name : apBitNames(bitSet))
      if (record.apBit(name))
        names += " " + std::string(name.starts_with("ap") ? name.substr(2) : name);
  return names;
}

std::string phaseText(const Record& record) {
  static constexpr std::array Phases{"reset",          "preflight", "take-off", "climb", "cruise",
                                     "before descent", "descent",   "approach", "landed"};
  const double phase = record.number("PhaseOfFlightEnum");
  if (phase < 0 || phase >= static_cast<double>(Phases.size())) return "?";
  return Phases[static_cast<std::size_t>(phase)];
}

void addAutoflight(Lines& lines, const Record& r) {
  lines.push_back("FMA  A/T " + leftAligned(mode(r, "ATEngagedMode"), 10) + "ROLL " +
                  leftAligned(mode(r, "RollEngagedMode"), 10) + "PITCH " +
                  leftAligned(mode(r, "PitchEngagedMode"), 10) + "A/P " + mode(r, "AutopilotMode"));
  lines.push_back("ARM  ROLL " + leftAligned(mode(r, "RollArmedMode"), 10) + "PITCH " +
                  leftAligned(mode(r, "PitchArmedMode"), 10) + "CWS " +
                  mode(r, "CwsRollEngagedMode") + " " + mode(r, "CwsPitchEngagedMode"));
  lines.push_back("MCP  CRS " + fixedField(r, "apCourse", 0) + "  SPD " +
                  fixedField(r, "apMcpAirSpeed", 0) + "  MACH " + fixedField(r, "ApMachNumber", 2) +
                  "  HDG " + fixedField(r, "ApHeadingSim", 0) + "  ALT " +
                  fixedField(r, "apMcpAltitude", 0) + "  V/S " + signedField(r, "apVertSpeed", 0) +
                  "  N1 " + fixedField(r, "apRpm", 1));
  lines.push_back("ON  " + engagedBits(r));
  lines.push_back("FMC  WPT " + leftAligned(mode(r, "ActiveWpt"), 8) +
                  fixedField(r, "DxToNextWaypoint", 1) + " NM  CRS " +
                  fixedField(r, "CrsToNextWaypoint", 0) + "   PHASE " + phaseText(r) +
                  "   MINIMUMS " + r.text("Minimums"));
}

std::string engineLine(const Record& record, std::string_view label, std::string_view name,
                       int decimals) {
  std::string line = leftAligned(std::string(label), 12);
  for (int engine = 1; engine <= record.layout().blocks(); ++engine) {
    const auto field = "Engines(" + std::to_string(engine) + ")." + std::string(name);
    line += rightAligned(fixedField(record, field, decimals), EngineColumnWidth);
  }
  return line;
}

void addEngines(Lines& lines, const Record& record) {
  std::string heading = leftAligned("ENGINE", 12);
  for (int engine = 1; engine <= record.layout().blocks(); ++engine)
    heading += rightAligned(std::to_string(engine), EngineColumnWidth);
  lines.push_back(heading);
  lines.push_back(engineLine(record, "N1 %", "N1", 1));
  lines.push_back(engineLine(record, "N1 bug %", "N1Target", 1));
  lines.push_back(engineLine(record, "N2 %", "N2", 1));
  lines.push_back(engineLine(record, "EGT C", "Egt", 0));
  lines.push_back(engineLine(record, "FLOW lb/h", "FuelFlow", 0));
  lines.push_back(engineLine(record, "OIL psi", "OilPressure", 1));
  lines.push_back(engineLine(record, "LEVER %", "ThrustLever", 1));
}

/// Active and standby frequency.
std::string frequencies(const Record& record, std::string_view active, std::string_view standby) {
  return fixedField(record, active, 2) + "/" + fixedField(record, standby, 2);
}

std::string squawk(const Record& record) {
  auto code = fixedField(record, "RadioValues(5)", 0);
  if (code.size() < 4) code.insert(0, 4 - code.size(), '0');
  return code;
}

std::string gear(const Record& record, std::string_view name) {
  const double position = travel_percent(record.number(name));
  if (position <= 0) return "UP";
  return position >= 100 ? "DOWN" : fixedText(position, 0) + "%";
}

void addSystems(Lines& lines, const Record& r) {
  lines.push_back("FUEL " + fixedField(r, "FuelTotalLb", 0) + " lb   LEFT " +
                  fixedField(r, "FuelTanks(LeftMain)", 1) + "%   CENTRE " +
                  fixedField(r, "FuelTanks(Centre)", 1) + "%   RIGHT " +
                  fixedField(r, "FuelTanks(RightMain)", 1) + "%   WEIGHT " + r.text("GrossWeight") +
                  " lb");
  lines.push_back("COM1 " + frequencies(r, "RadioValues(1)", "RadioValues(13)") + "  COM2 " +
                  frequencies(r, "RadioValues(8)", "RadioValues(14)") + "  NAV1 " +
                  frequencies(r, "RadioValues(2)", "RadioValues(15)") + "  NAV2 " +
                  frequencies(r, "RadioValues(3)", "RadioValues(16)"));
  lines.push_back("ADF1 " + fixedField(r, "RadioValues(4)", 1) + " " + mode(r, "Adf1Id") +
                  "  XPDR " + squawk(r) + "  VOR1 " + mode(r, "Vor1Id") + " " +
                  fixedField(r, "NavRadios(1).DmeDistance", 1) + " NM  VOR2 " + mode(r, "Vor2Id") +
                  " " + fixedField(r, "NavRadios(2).DmeDistance", 1) + " NM");
  lines.push_back("FLAPS " + fixedText(travel_percent(r.number("FlapsPosition")), 0) +
                  "%   GEAR L " + gear(r, "GearLeft") + " N " + gear(r, "GearNose") + " R " +
                  gear(r, "GearRight") + "   SPOILERS " +
                  fixedText(travel_percent(r.number("StateValues(2)")), 0) + "%   " +
                  (r.number("StateValues(9)") != 0 ? "BRAKE SET   " : "") +
                  (r.number("OnGround") != 0 ? "ON GROUND" : "AIRBORNE"));
}

}  // namespace

std::vector<std::string> livePage(const std::optional<Record>& record, const PageStatus& status) {
  Lines lines{title(status)};
  if (record) {
    addFlight(lines, *record);
    addAutoflight(lines, *record);
    addEngines(lines, *record);
    addSystems(lines, *record);
  }
  lines.resize(PageHeight - 1);
  lines.push_back(status.message);
  for (std::string& line : lines) line = printable(line).substr(0, PageWidth);
  return lines;
}

}  // namespace vorlent
