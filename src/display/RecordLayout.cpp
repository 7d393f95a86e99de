#include "display/RecordLayout.h"

#include <algorithm>
#include <array>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

using enum TokenKind;

constexpr TokenRow Rows[] = {
    // Header.
    {1, 1, Integer, "EngineCount", "-"},
    {1, 2, Integer, "EngineType", "-"},
    // Position.
    {2, 1, Single, "Latitude", "degrees"},
    {2, 2, Single, "Longitude", "degrees"},
    {2, 3, Double, "AircraftAltitude", "feet"},
    {2, 4, Integer, "RadioAltitude", "feet"},
    {2, 5, Single, "MagVar", "degrees"},
    {2, 6, Integer, "OnGround", "-"},
    // Attitude.
    {3, 1, Single, "Pitch", "degrees"},
    {3, 2, Single, "Bank", "degrees"},
    {3, 3, Single, "MagHeading", "degrees"},
    {3, 4, Single, "TurnCoordinatorBall", "-"},
    // Speeds.
    {4, 1, Integer, "GroundSpeed", "knots"},
    {4, 2, Integer, "Tas", "knots"},
    {4, 3, Single, "Ias", "knots"},
    {4, 4, Single, "BarberPole", "knots"},
    {4, 5, Single, "VerticalSpeed", "ft/min"},
    {4, 6, Single, "TurnRate", "-"},
    // Navigation receivers and fuel.
    {5, 1, Integer, "NavRadios(1).GsFlag", "-"},
    {5, 2, Integer, "NavRadios(1).ToFrom", "-"},
    {5, 3, Integer, "NavRadios(1).LocNeedle", "-"},
    {5, 4, Integer, "NavRadios(1).Radial", "degrees"},
    {5, 5, Integer, "NavRadios(1).GsNeedle", "-"},
    {5, 6, Single, "IlsCourse", "degrees"},
    {5, 7, Integer, "NavRadios(2).BackCourse", "-"},
    {5, 8, Integer, "NavRadios(2).ToFrom", "-"},
    {5, 9, Integer, "NavRadios(2).LocNeedle", "-"},
    {5, 10, Integer, "NavRadios(2).Radial", "degrees"},
    {5, 11, Integer, "NavRadios(1).OuterMarker", "-"},
    {5, 12, Integer, "NavRadios(1).MiddleMarker", "-"},
    {5, 13, Integer, "NavRadios(1).InnerMarker", "-"},
    {5, 14, Single, "NavRadios(1).DmeDistance", "NM"},
    {5, 15, Single, "NavRadios(1).DmeSpeed", "knots"},
    {5, 16, Single, "NavRadios(2).DmeDistance", "NM"},
    {5, 17, Single, "NavRadios(2).DmeSpeed", "knots"},
    {5, 18, Single, "Adf1Bearing", "degrees"},
    {5, 19, Single, "FuelTanks(LeftAux)", "percent"},
    {5, 20, Single, "FuelTanks(RightAux)", "percent"},
    {5, 21, Single, "FuelTanks(LeftMain)", "percent"},
    {5, 22, Single, "FuelTanks(RightMain)", "percent"},
    {5, 23, Single, "FuelTanks(Centre)", "percent"},
    {5, 24, Single, "FuelTotalLb", "pounds"},
    {5, 25, Single, "FuelLbPerGallon", "lb/gal"},
    // Engines.
    {6, 1, Single, "Epr", "-"},
    {6, 2, Single, "N1", "percent"},
    {6, 3, Single, "N2", "percent"},
    {6, 4, Single, "Word08C0", "-"},
    {6, 5, Single, "OilPressure", "psi"},
    {6, 6, Single, "OilTemp", "deg C"},
    {6, 7, Single, "Egt", "deg C"},
    {6, 8, Double, "FuelFlow", "lb/h"},
    {6, 9, Double, "Cht", "-"},
    {6, 10, Integer, "Itt", "deg C"},
    {6, 11, Single, "PropValue", "-"},
    {6, 12, Single, "Torque", "-"},
    {6, 13, Integer, "OilQuantity", "percent"},
    {6, 14, Single, "Vibration", "-"},
    {6, 15, Single, "HydPressure", "psi"},
    {6, 16, Integer, "HydQuantity", "percent"},
    {6, 17, Single, "Word08F8", "-"},
    {6, 18, Integer, "AntiIce", "-"},
    {6, 19, Integer, "Starter", "-"},
    {6, 20, Single, "ThrustLever", "percent"},
    {6, 21, Single, "FuelUsed", "pounds"},
    {6, 22, Single, "Word0908", "-"},
    {6, 23, Integer, "Mixture", "percent"},
    {6, 24, Single, "GeneratorA", "-"},
    {6, 25, Single, "GeneratorB", "-"},
    {6, 26, Integer, "Reserved(1)", "-"},
    {6, 27, Integer, "Reserved(2)", "-"},
    {6, 28, Integer, "Reserved(3)", "-"},
    {6, 29, Integer, "Reserved(4)", "-"},
    {6, 30, Integer, "Reserved(5)", "-"},
    {6, 31, Integer, "Reserved(6)", "-"},
    {6, 32, Integer, "Reserved(7)", "-"},
    {6, 33, Single, "N1Target", "percent"},
    {6, 34, Single, "ClientValueB", "-"},
    // Radios.
    {7, 1, Single, "RadioValues(1)", "MHz"},
    {7, 2, Single, "RadioValues(2)", "MHz"},
    {7, 3, Single, "RadioValues(3)", "MHz"},
    {7, 4, Single, "RadioValues(4)", "kHz"},
    {7, 5, Single, "RadioValues(5)", "-"},
    {7, 6, Single, "RadioValues(6)", "degrees"},
    {7, 7, Single, "RadioValues(7)", "degrees"},
    {7, 8, Single, "RadioValues(8)", "MHz"},
    {7, 9, Single, "RadioValues(9)", "-"},
    {7, 10, Single, "RadioValues(10)", "-"},
    {7, 11, Single, "RadioValues(11)", "-"},
    {7, 12, Single, "RadioValues(12)", "degrees"},
    {7, 13, Single, "RadioValues(13)", "MHz"},
    {7, 14, Single, "RadioValues(14)", "MHz"},
    {7, 15, Single, "RadioValues(15)", "MHz"},
    {7, 16, Single, "RadioValues(16)", "MHz"},
    {7, 17, Single, "StandbyValues(5)", "kHz"},
    {7, 18, Text, "Vor1Id", "-"},
    {7, 19, Text, "Vor2Id", "-"},
    {7, 20, Text, "Adf1Id", "-"},
    // Flight controls and cabin state.
    {8, 1, Integer, "ElevatorInput", "-"},
    {8, 2, Integer, "AileronInput", "-"},
    {8, 3, Double, "ElevatorTrimDeg", "degrees"},
    {8, 4, Integer, "RudderInput", "-"},
    {8, 5, Double, "AileronTrimDeg", "degrees"},
    {8, 6, Single, "StateValues(1)", "-"},
    {8, 7, Single, "StateValues(2)", "-"},
    {8, 8, Single, "StateValues(3)", "-"},
    {8, 9, Single, "StateValues(4)", "-"},
    {8, 10, Single, "StateValues(5)", "-"},
    {8, 11, Single, "StateValues(6)", "-"},
    {8, 12, Single, "StateValues(7)", "-"},
    {8, 13, Single, "StateValues(8)", "-"},
    {8, 14, Single, "StateValues(9)", "-"},
    {8, 15, Single, "StateValues(10)", "-"},
    {8, 16, Single, "StateValues(11)", "-"},
    {8, 17, Single, "StateValues(12)", "deg C"},
    {8, 18, Single, "StateValues(13)", "-"},
    {8, 19, Single, "StateValues(14)", "hPa"},
    {8, 20, Single, "StateValues(15)", "hPa"},
    {8, 21, Single, "StateValues(16)", "-"},
    {8, 22, Single, "StateValues(17)", "-"},
    {8, 23, Single, "StateValues(18)", "deg C"},
    {8, 24, Single, "StateValues(19)", "deg C"},
    // Tank selectors.
    {9, 1, Integer, "SwitchPair(1)", "-"},
    {9, 2, Integer, "SwitchPair(2)", "-"},
    // Wind.
    {10, 1, Single, "WindDirection", "degrees"},
    {10, 2, Single, "WindSpeedKt", "knots"},
    {10, 3, Integer, "Word0EEE", "feet"},
    // Autopilot state.
    {11, 1, Integer, "ApBits(1)", "bits"},
    {11, 2, Integer, "ApBits(2)", "bits"},
    {11, 3, Integer, "ApBits(3)", "bits"},
    {11, 4, Single, "apMcpAltitude", "feet"},
    {11, 5, Single, "ApHeadingSim", "degrees"},
    {11, 6, Single, "apCourse", "degrees"},
    {11, 7, Single, "ApMachNumber", "Mach"},
    {11, 8, Single, "apMcpAirSpeed", "knots"},
    {11, 9, Single, "apVertSpeed", "ft/min"},
    {11, 10, Single, "apRpm", "percent"},
    {11, 11, Single, "Mach", "Mach"},
    // Flaps.
    {12, 1, Integer, "FlapsPosition", "-"},
    {12, 2, Integer, "FlapsPositionRight", "-"},
    // Gear.
    {13, 1, Integer, "GearNose", "-"},
    {13, 2, Integer, "GearLeft", "-"},
    {13, 3, Integer, "GearRight", "-"},
    // One value of the commands.
    {14, 1, Single, "StateValues(20)", "-"},
    // Time and flight director.
    {15, 1, Text, "LocalTimeText(1)", "-"},
    {15, 2, Text, "LocalTimeText(2)", "-"},
    {15, 3, Text, "LocalTimeText(3)", "-"},
    {15, 4, Single, "ZuluTime", "-"},
    {15, 5, Integer, "FdActive", "-"},
    {15, 6, Single, "FdPitch", "degrees"},
    {15, 7, Single, "FdBank", "degrees"},
    {15, 8, Integer, "GrossWeight", "pounds"},
    {15, 9, Single, "Word0C3EDeg", "degrees"},
    {15, 10, Single, "Double0B18", "-"},
    {15, 11, Single, "StateValues(21)", "-"},
    {15, 12, Integer, "Reserved(1)", "-"},
    {15, 13, Integer, "Reserved(2)", "-"},
    {15, 14, Integer, "Reserved(3)", "-"},
    {15, 15, Integer, "Reserved(4)", "-"},
    {15, 16, Integer, "Reserved(5)", "-"},
    {15, 17, Integer, "Reserved(6)", "-"},
    {15, 18, Integer, "Reserved(7)", "-"},
    {15, 19, Integer, "Reserved(8)", "-"},
    {15, 20, Integer, "Reserved(9)", "-"},
    {15, 21, Integer, "Reserved(10)", "-"},
    {15, 22, Integer, "Reserved(11)", "-"},
    {15, 23, Integer, "Reserved(12)", "-"},
    {15, 24, Integer, "Reserved(13)", "-"},
    {15, 25, Integer, "Reserved(14)", "-"},
    {15, 26, Integer, "Reserved(15)", "-"},
    {15, 27, Integer, "Reserved(16)", "-"},
    // Flight management and annunciations.
    {16, 1, Integer, "LnavCriteria", "-"},
    {16, 2, Single, "AfdsValueA", "-"},
    {16, 3, Single, "AfdsValueB", "-"},
    {16, 4, Integer, "MessageId", "-"},
    {16, 5, Integer, "PhaseOfFlightEnum", "-"},
    {16, 6, Single, "DxToNextWaypoint", "NM"},
    {16, 7, Single, "CrsToNextWaypoint", "degrees"},
    {16, 8, Text, "ATEngagedMode", "-"},
    {16, 9, Text, "RollEngagedMode", "-"},
    {16, 10, Text, "PitchEngagedMode", "-"},
    {16, 11, Text, "RollArmedMode", "-"},
    {16, 12, Text, "PitchArmedMode", "-"},
    {16, 13, Text, "CwsRollEngagedMode", "-"},
    {16, 14, Text, "CwsPitchEngagedMode", "-"},
    {16, 15, Text, "AutopilotMode", "-"},
    {16, 16, Integer, "Minimums", "feet"},
    {16, 17, Text, "ActiveWpt", "-"},
    // Panel state.
    {17, 1, Integer, "PanelWord1", "-"},
    {17, 2, Integer, "PanelWord2", "-"},
    {17, 3, Integer, "PanelWord3", "-"},
    {17, 4, Integer, "PanelWord4", "-"},
    {17, 5, Integer, "PanelWord5", "-"},
    {17, 6, Integer, "PanelWord6", "-"},
    {17, 7, Integer, "PanelWord7", "-"},
    {17, 8, Integer, "PanelWord8", "-"},
    {17, 9, Integer, "PanelWord9", "-"},
    {17, 10, Integer, "PanelWord10", "-"},
    {17, 11, Integer, "PanelWord11", "-"},
    {17, 12, Integer, "PanelWord12", "-"},
    {17, 13, Integer, "PanelWord13", "-"},
    {17, 14, Integer, "PanelWord14", "-"},
    // Second ADF and electrical master.
    {18, 1, Single, "Adf2Freq", "kHz"},
    {18, 2, Single, "Adf2Bearing", "degrees"},
    {18, 3, Text, "Adf2Id", "-"},
    {18, 4, Integer, "NavGpsSwitch", "-"},
    {18, 5, Integer, "Byte3BFB", "-"},
    {18, 6, Integer, "MasterBattery", "-"},
    {18, 7, Integer, "AvionicsMaster", "-"},
    {18, 8, Integer, "Long2E88", "-"},
    {18, 9, Integer, "Long2EC8", "-"},
    {18, 10, Single, "ClientValueC", "-"},
    // Electrical.
    {19, 1, Single, "Electrical(3)", "-"},
    {19, 2, Single, "Electrical(1)", "-"},
    {19, 3, Single, "Electrical(2)", "-"},
    {19, 4, Single, "Electrical(4)", "-"},
    {19, 5, Single, "Electrical(5)", "-"},
    {19, 6, Single, "Electrical(6)", "-"},
    {19, 7, Single, "Electrical(7)", "-"},
    {19, 8, Single, "Electrical(8)", "-"},
    {19, 9, Single, "Electrical(9)", "-"},
    {19, 10, Single, "Electrical(10)", "-"},
    {19, 11, Single, "Electrical(11)", "-"},
    // Failures.
    {20, 1, Integer, "FailureFlags(1)", "-"},
    {20, 2, Integer, "FailureFlags(2)", "-"},
    {20, 3, Integer, "FailureFlags(3)", "-"},
    {20, 4, Integer, "FailureFlags(4)", "-"},
    {20, 5, Integer, "FailureFlags(5)", "-"},
    {20, 6, Integer, "FailureFlags(6)", "-"},
    {20, 7, Integer, "FailureFlags(7)", "-"},
    {20, 8, Integer, "FailureFlags(8)", "-"},
    {20, 9, Integer, "FailureFlags(9)", "-"},
    {20, 10, Integer, "FailureFlags(10)", "-"},
    {20, 11, Integer, "FailureFlags(11)", "-"},
    {20, 12, Integer, "FailureFlags(12)", "-"},
    {20, 13, Integer, "FailureFlags(13)", "-"},
    {20, 14, Integer, "FailureFlags(14)", "-"},
    {20, 15, Integer, "FailureFlags(15)", "-"},
    {20, 16, Integer, "FailureFlags(16)", "-"},
    {20, 17, Integer, "FailureFlags(17)", "-"},
    {20, 18, Integer, "FailureFlags(18)", "-"},
    {20, 19, Integer, "FailureFlags(19)", "-"},
    {20, 20, Integer, "FailureFlags(20)", "-"},
    // Closing.
    {21, 1, Integer, "FlapIncrement", "-"},
    {21, 2, Text, "end", "-"},
};

constexpr std::array<std::array<std::string_view, 8>, ApBitSets> ApBitNames{{
    {"apAirspeedHoldByPitch", "apAltitudeHold", "apGlideslopeHold", "apAttitudeHold",
     "apBackCourseHold", "apHeadingHold", "apLocalizerHold", "apAirspeedHoldByRpm"},
    {"apMaster", "apCmdLeft", "apCwsLeft", "apCmdRight", "apNav1Hold", "apVSpeedHold", "apRpmHold",
     "apCwsRight"},
    {"apAutoThrottle", "apToGa", "AutoCoordination", "apChangeover", "LNAV", "VNAV",
     "apLevelChange", "apApproachHold"},
}};

}  // namespace

std::span<const TokenRow> tokenRows() { return Rows; }

std::span<const std::string_view, 8> apBitNames(int bitSet) {
  if (bitSet < 1 || bitSet > ApBitSets) throw RuntimeError(RuntimeError::SubscriptOutOfRange);
  return ApBitNames[static_cast<std::size_t>(bitSet - 1)];
}

int engineBlocks(long long engineCount) {
  return engineCount >= 1 && engineCount <= 3 ? static_cast<int>(engineCount) : 4;
}

const RecordLayout& RecordLayout::ofBlocks(int blocks) {
  static const std::array<RecordLayout, 4> layouts{RecordLayout(1), RecordLayout(2),
                                                   RecordLayout(3), RecordLayout(4)};
  if (blocks < 1 || blocks > 4) throw RuntimeError(RuntimeError::SubscriptOutOfRange);
  return layouts[static_cast<std::size_t>(blocks - 1)];
}

RecordLayout::RecordLayout(int blocks) : blocks_(blocks) {
  const auto isEngineRow = [](const TokenRow& row) { return row.group == EngineGroup; };
  const auto rows = tokenRows();
  const auto engines = std::find_if(rows.begin(), rows.end(), isEngineRow);
  const auto afterEngines = std::find_if_not(engines, rows.end(), isEngineRow);
  for (auto row = rows.begin(); row != engines; ++row)
    tokens_.push_back({&*row, std::string(row->name)});
  addEngines({engines, afterEngines});
  for (auto row = afterEngines; row != rows.end(); ++row)
    tokens_.push_back({&*row, std::string(row->name)});
  for (std::size_t i = 0; i < tokens_.size(); ++i) indices_.emplace(tokens_[i].name, i);
}

void RecordLayout::addEngines(std::span<const TokenRow> rows) {
  for (int engine = 1; engine <= blocks_; ++engine)
    for (const TokenRow& row : rows)
      tokens_.push_back({&row, "Engines(" + std::to_string(engine) + ")." + std::string(row.name)});
}

std::optional<std::size_t> RecordLayout::indexOf(std::string_view name) const {
  const auto found = indices_.find(name);
  if (found == indices_.end()) return std::nullopt;
  return found->second;
}

}  // namespace vorlent
