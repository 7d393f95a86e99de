#include <array>
#include <cmath>
#include <cstdio>
#include <sstream>

#include "support/IndependentRecord.h"

namespace vorlent {
namespace {

std::string printed(double value, int digits, const std::string& mark) {
  if (value == 0) return "0";
  std::array<char, 40> buffer{};
  std::snprintf(buffer.data(), buffer.size(), digits == 7 ? "%.7G" : "%.15G", value);
  std::string text = buffer.data();
  if (const auto point = text.find('.'); point != std::string::npos) text.replace(point, 1, mark);
  return text;
}

const std::string HeadOfRecord = R"(
I EngineCount
I EngineType
F Latitude
F Longitude
D AircraftAltitude
I RadioAltitude
F MagVar
I OnGround
F Pitch
F Bank
F MagHeading
F TurnCoordinatorBall
I GroundSpeed
I Tas
F Ias
F BarberPole
F VerticalSpeed
F TurnRate
I NavRadios(1).GsFlag
I NavRadios(1).ToFrom
I NavRadios(1).LocNeedle
I NavRadios(1).Radial
I NavRadios(1).GsNeedle
F IlsCourse
I NavRadios(2).BackCourse
I NavRadios(2).ToFrom
I NavRadios(2).LocNeedle
I NavRadios(2).Radial
I NavRadios(1).OuterMarker
I NavRadios(1).MiddleMarker
I NavRadios(1).InnerMarker
F NavRadios(1).DmeDistance
F NavRadios(1).DmeSpeed
F NavRadios(2).DmeDistance
F NavRadios(2).DmeSpeed
F Adf1Bearing
F LeftAux.Level
F RightAux.Level
F LeftMain.Level
F RightMain.Level
F Centre.Level
F FuelTotalLb
F FuelLbPerGallon
)";

const std::string EngineBlock = R"(
F Engines(#).Epr
F Engines(#).N1
F Engines(#).N2
F Engines(#).Word08C0
F Engines(#).OilPressure
F Engines(#).OilTemp
F Engines(#).Egt
D Engines(#).FuelFlow
D Engines(#).Cht
I Engines(#).Itt
F Engines(#).PropValue
F Engines(#).Torque
I Engines(#).OilQuantity
F Engines(#).Vibration
F Engines(#).HydPressure
I Engines(#).HydQuantity
F Engines(#).Word08F8
I Engines(#).AntiIce
I Engines(#).Starter
F Engines(#).ThrustLever
F Engines(#).FuelUsedLb
F Engines(#).Word0908
I Engines(#).Mixture
F Engines(#).GeneratorA
F Engines(#).GeneratorB
0 7
F Engines(#).N1Target
F Engines(#).ClientValueB
)";

const std::string RadioValuesGroup = "N 1 12 F RadioValues";
const std::string StandbyOfOldSimulator = "N 1 5 F StandbyValues";
const std::string StandbyOfNewSimulator = "N 13 16 F RadioValues\nF StandbyValues(5)";

const std::string TailOfRecord = R"(
T Vor1Id
T Vor2Id
T Adf1Id
I ElevatorInput
I AileronInput
D ElevatorTrimDeg
I RudderInput
D AileronTrimDeg
N 1 19 F StateValues
N 1 2 I SwitchPair
F WindDirection
F WindSpeedKt
I Word0EEE
I ApBits1
I ApBits2
I ApBits3
F apMcpAltitude
F ApHeadingSim
F apCourse
F ApMachNumber
F apMcpAirSpeed
F apVertSpeed
F apRpm
F Mach
I FlapsPosition
I FlapsPositionRight
I GearNose
I GearLeft
I GearRight
F StateValues(20)
T Hours
T Minutes
T Seconds
F ZuluTime
I FdActive
F FdPitch
F FdBank
I GrossWeight
F Word0C3EDeg
F Double0B18
F StateValues(21)
0 16
I LnavCriteria
F AfdsValueA
F AfdsValueB
I MessageId
I PhaseOfFlightEnum
F DxToNextWaypoint
F CrsToNextWaypoint
T ATEngagedMode
T RollEngagedMode
T PitchEngagedMode
T RollArmedMode
T PitchArmedMode
T CwsRollEngagedMode
T CwsPitchEngagedMode
T AutopilotMode
I Minimums
T ActiveWpt
N 1 14 I PanelWord
F Adf2Freq
F Adf2Bearing
T Adf2Id
I NavGpsSwitch
I Byte3BFB
I MasterBattery
I AvionicsMaster
I Long2E88
I Long2EC8
F ClientValueC
F Electrical(3)
F Electrical(1)
F Electrical(2)
N 4 11 F Electrical
N 1 20 T FailureFlags
I FlapIncrement
)";

std::string elementOf(const std::string& array, int index) {
  return array + "(" + std::to_string(index) + ")";
}

}  // namespace

void IndependentRecord::keepEngineTokens(int n) {
  single(elementOf("Engines", n) + ".FuelUsedLb",
         number("FuelLbPerGallon") * number(elementOf("FuelBurnt", n)));
  append(engineTokens_, EngineBlock, n);
}

std::vector<IndependentRecord::Token> IndependentRecord::tokens() const {
  std::vector<Token> all;
  append(all, HeadOfRecord);
  all.insert(all.end(), engineTokens_.begin(), engineTokens_.end());
  append(all, RadioValuesGroup);
  append(all, FsVersionCode < 2 ? StandbyOfOldSimulator : StandbyOfNewSimulator);
  append(all, TailOfRecord);
  all.push_back({"end", "end", '0'});
  return all;
}

void IndependentRecord::append(std::vector<Token>& to, std::string_view layout, int n) const {
  std::istringstream lines{std::string(layout)};
  std::string kind;
  std::string name;
  while (lines >> kind >> name) {
    if (kind == "0") {
      for (int zero = 1; zero <= std::stoi(name); ++zero) to.push_back({"reserved zero", "0", '0'});
    } else if (kind == "N") {
      std::string last;
      std::string array;
      lines >> last >> kind >> array;
      for (int index = std::stoi(name); index <= std::stoi(last); ++index)
        to.push_back({elementOf(array, index), token(kind, elementOf(array, index)), kind[0]});
    } else {
      if (const auto mark = name.find('#'); mark != std::string::npos)
        name.replace(mark, 1, std::to_string(n));
      to.push_back({name, token(kind, name), kind[0]});
    }
  }
}

std::string IndependentRecord::token(std::string_view kind, const std::string& name) const {
  const auto sumOf = [this](std::initializer_list<const char*> names) {
    double sum = 0;
    double weight = 1;
    for (const char* bit : names) {
      sum += weight * number(bit);
      weight *= 2;
    }
    return std::to_string(std::lround(sum));
  };
  if (name == "ApBits1")
    return sumOf({"apAirspeedHoldByPitch", "apAltitudeHold", "apGlideslopeHold", "apAttitudeHold",
                  "apBackCourseHold", "apHeadingHold", "apLocalizerHold", "apAirspeedHoldByRpm"});
  if (name == "ApBits2")
    return sumOf({"apMaster", "apCmdLeft", "apCwsLeft", "apCmdRight", "apNav1Hold", "apVSpeedHold",
                  "apRpmHold", "apCwsRight"});
  if (name == "ApBits3")
    return sumOf({"apAutoThrottle", "apToGa", "AutoCoordination", "apChangeover", "LNAV", "VNAV",
                  "apLevelChange", "apApproachHold"});
  if (name == "IlsCourse") {
    const double course = number("NavRadios(1).IlsHeading") - number("MagVar");
    return printed(static_cast<float>(course), 7, sDecimal);
  }
  if (name == "Hours" || name == "Minutes" || name == "Seconds") {
    std::string part = texts.at("LocalTimeText")
                           .substr(name == "Hours"     ? 0
                                   : name == "Minutes" ? 3
                                                       : 6,
                                   2);
    std::erase(part, ' ');
    return part;
  }
  if (kind == "T") {
    const auto found = texts.find(name);
    return found == texts.end() ? std::string() : found->second;
  }
  if (kind == "I") return std::to_string(std::lround(number(name)));
  return printed(number(name), kind == "F" ? 7 : 15, sDecimal);
}

std::vector<std::string> IndependentRecord::fieldsOf(std::string_view record) {
  std::vector<std::string> fields;
  if (!record.starts_with("Data ") || !record.ends_with(' ')) return fields;
  record.remove_prefix(5);
  while (!record.empty()) {
    const auto end = record.find(' ');
    fields.emplace_back(record.substr(0, end));
    record.remove_prefix(end + 1);
  }
  return fields;
}

}  // namespace vorlent
