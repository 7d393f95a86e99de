#include "display/LivePage.h"

#include <fmt/format.h>

#include <array>

#include "display/format.h"

namespace vorlent {
namespace {

using Lines = std::vector<std::string>;

/// "-" stands for a blank annunciator.
std::string mode(const Record& record, std::string_view name) {
  const std::string& text = record.text(name);
  return text.empty() || text == "_" ? "-" : text;
}

std::string title(const PageStatus& status) {
  return fmt::format("{}VORLENT DISPLAY   {}   {}   record {}",
                     status.stale_s ? fmt::format("STALE {:.1f} s   ", *status.stale_s) : "",
                     status.server, status.folder, status.recordCount);
}

void addFlight(Lines& lines, const Record& r) {
  lines.push_back(fmt::format("TIME {}:{}:{}  UTC {}   {} {}   VAR {:+.1f}",
                              r.text("LocalTimeText(1)"), r.text("LocalTimeText(2)"),
                              r.text("LocalTimeText(3)"), clockText(r.number("ZuluTime")),
                              latitudeText(r.number("Latitude")),
                              longitudeText(r.number("Longitude")), r.number("MagVar")));
  lines.push_back(fmt::format("ALT  {:.0f} ft   RA {} ft   V/S {:+.0f} ft/min   QNH {:.1f} hPa",
                              r.number("AircraftAltitude"), r.text("RadioAltitude"),
                              r.number("VerticalSpeed"), r.number("StateValues(14)")));
  lines.push_back(fmt::format(
      "IAS  {:.1f} kt   TAS {} kt   GS {} kt   MACH {:.3f}   LIMIT {:.0f} kt", r.number("Ias"),
      r.text("Tas"), r.text("GroundSpeed"), r.number("Mach"), r.number("BarberPole")));
  lines.push_back(
      fmt::format("HDG  {:.1f}   PITCH {:+.1f}   BANK {}   OAT {:+.1f} C   WIND {:.0f}/{:.0f}",
                  r.number("MagHeading"), r.number("Pitch"), bankText(r.number("Bank")),
                  r.number("StateValues(18)"), r.number("WindDirection"), r.number("WindSpeedKt")));
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
  lines.push_back(fmt::format("FMA  A/T {:10}ROLL {:10}PITCH {:10}A/P {}", mode(r, "ATEngagedMode"),
                              mode(r, "RollEngagedMode"), mode(r, "PitchEngagedMode"),
                              mode(r, "AutopilotMode")));
  lines.push_back(fmt::format("ARM  ROLL {:10}PITCH {:10}CWS {} {}", mode(r, "RollArmedMode"),
                              mode(r, "PitchArmedMode"), mode(r, "CwsRollEngagedMode"),
                              mode(r, "CwsPitchEngagedMode")));
  lines.push_back(fmt::format(
      "MCP  CRS {:.0f}  SPD {:.0f}  MACH {:.2f}  HDG {:.0f}  ALT {:.0f}  V/S {:+.0f}  N1 {:.1f}",
      r.number("apCourse"), r.number("apMcpAirSpeed"), r.number("ApMachNumber"),
      r.number("ApHeadingSim"), r.number("apMcpAltitude"), r.number("apVertSpeed"),
      r.number("apRpm")));
  lines.push_back("ON  " + engagedBits(r));
  lines.push_back(fmt::format("FMC  WPT {:8}{:.1f} NM  CRS {:.0f}   PHASE {}   MINIMUMS {}",
                              mode(r, "ActiveWpt"), r.number("DxToNextWaypoint"),
                              r.number("CrsToNextWaypoint"), phaseText(r), r.text("Minimums")));
}

std::string engineLine(const Record& record, std::string_view label, std::string_view name,
                       int decimals) {
  std::string line = fmt::format("{:12}", label);
  for (int engine = 1; engine <= record.layout().blocks(); ++engine)
    line += fmt::format("{:12.{}f}", record.number(fmt::format("Engines({}).{}", engine, name)),
                        decimals);
  return line;
}

void addEngines(Lines& lines, const Record& record) {
  std::string heading = fmt::format("{:12}", "ENGINE");
  for (int engine = 1; engine <= record.layout().blocks(); ++engine)
    heading += fmt::format("{:12}", engine);
  lines.push_back(heading);
  lines.push_back(engineLine(record, "N1 %", "N1", 1));
  lines.push_back(engineLine(record, "N1 bug %", "N1Target", 1));
  lines.push_back(engineLine(record, "N2 %", "N2", 1));
  lines.push_back(engineLine(record, "EGT C", "Egt", 0));
  lines.push_back(engineLine(record, "FLOW lb/h", "FuelFlow", 0));
  lines.push_back(engineLine(record, "OIL psi", "OilPressure", 1));
  lines.push_back(engineLine(record, "LEVER %", "ThrustLever", 1));
}

std::string gear(const Record& record, std::string_view name) {
  const double position = travel_percent(record.number(name));
  if (position <= 0) return "UP";
  return position >= 100 ? "DOWN" : fmt::format("{:.0f}%", position);
}

void addSystems(Lines& lines, const Record& r) {
  lines.push_back(fmt::format(
      "FUEL {:.0f} lb   LEFT {:.1f}%   CENTRE {:.1f}%   RIGHT {:.1f}%   WEIGHT {} lb",
      r.number("FuelTotalLb"), r.number("FuelTanks(LeftMain)"), r.number("FuelTanks(Centre)"),
      r.number("FuelTanks(RightMain)"), r.text("GrossWeight")));
  lines.push_back(fmt::format(
      "COM1 {:.2f}/{:.2f}  COM2 {:.2f}/{:.2f}  NAV1 {:.2f}/{:.2f}  NAV2 {:.2f}/{:.2f}",
      r.number("RadioValues(1)"), r.number("RadioValues(13)"), r.number("RadioValues(8)"),
      r.number("RadioValues(14)"), r.number("RadioValues(2)"), r.number("RadioValues(15)"),
      r.number("RadioValues(3)"), r.number("RadioValues(16)")));
  lines.push_back(fmt::format("ADF1 {:.1f} {}  XPDR {:04.0f}  VOR1 {} {:.1f} NM  VOR2 {} {:.1f} NM",
                              r.number("RadioValues(4)"), mode(r, "Adf1Id"),
                              r.number("RadioValues(5)"), mode(r, "Vor1Id"),
                              r.number("NavRadios(1).DmeDistance"), mode(r, "Vor2Id"),
                              r.number("NavRadios(2).DmeDistance")));
  lines.push_back(fmt::format("FLAPS {:.0f}%   GEAR L {} N {} R {}   SPOILERS {:.0f}%   {}{}",
                              travel_percent(r.number("FlapsPosition")), gear(r, "GearLeft"),
                              gear(r, "GearNose"), gear(r, "GearRight"),
                              travel_percent(r.number("StateValues(2)")),
                              r.number("StateValues(9)") != 0 ? "BRAKE SET   " : "",
                              r.number("OnGround") != 0 ? "ON GROUND" : "AIRBORNE"));
}

}  // namespace

std::vector<std::string> livePage(const std::optional<Record>& record, const PageStatus& status,
                                  std::size_t width) {
  Lines lines{title(status)};
  if (record) {
    addFlight(lines, *record);
    addAutoflight(lines, *record);
    addEngines(lines, *record);
    addSystems(lines, *record);
  }
  lines.resize(PageHeight - 1);
  lines.push_back(status.message);
  for (std::string& line : lines) line = printable(line).substr(0, width);
  return lines;
}

}  // namespace vorlent
