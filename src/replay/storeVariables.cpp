#include "replay/storeVariables.h"

#include <algorithm>
#include <type_traits>

#include "base/RuntimeError.h"
#include "base/text.h"
#include "replay/nearNames.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

template <class Value>
std::string textOf(const Value& value) {
  if constexpr (std::is_same_v<Value, std::string>)
    return value;
  else if constexpr (std::is_same_v<Value, float>)
    return singleText(value);
  else if constexpr (std::is_same_v<Value, double>)
    return doubleText(value);
  else
    return std::to_string(value);
}

/// A member of the store, or an array of them.
struct Member {
  static constexpr int NoArray = -1;

  const char* name;
  const char* field;  ///< of the elements, with the point before it; empty without one
  int first;
  int last;
  StoreVariable::Read read;
  bool isText;
};

template <class Value>
constexpr bool IsText = std::is_same_v<std::remove_cvref_t<Value>, std::string>;

template <auto Variable>
constexpr Member single(const char* name) {
  return {name,
          "",
          Member::NoArray,
          Member::NoArray,
          [](const modPublic& v, int) { return textOf(v.*Variable); },
          IsText<decltype(std::declval<modPublic>().*Variable)>};
}

template <auto Array>
using ArrayOf = std::remove_cvref_t<decltype(std::declval<modPublic>().*Array)>;

template <auto Array>
constexpr Member elements(const char* name) {
  return {name,
          "",
          ArrayOf<Array>::First,
          ArrayOf<Array>::Last,
          [](const modPublic& v, int index) { return textOf((v.*Array)(index)); },
          IsText<decltype(std::declval<ArrayOf<Array>>()(0))>};
}

template <auto Array, auto Field>
constexpr Member fields(const char* name, const char* field) {
  return {name,
          field,
          ArrayOf<Array>::First,
          ArrayOf<Array>::Last,
          [](const modPublic& v, int index) { return textOf((v.*Array)(index).*Field); },
          IsText<decltype(std::declval<ArrayOf<Array>>()(0).*Field)>};
}

/// In the order of the store.
constexpr Member Members[] = {
    single<&modPublic::IsMaster>("IsMaster"),
    single<&modPublic::CycleRunning>("CycleRunning"),
    single<&modPublic::Ticks>("Ticks"),
    single<&modPublic::EffectivePoll>("EffectivePoll"),
    single<&modPublic::FsWindow>("FsWindow"),
    single<&modPublic::FsVersionCode>("FsVersionCode"),
    single<&modPublic::ClientCount>("ClientCount"),
    single<&modPublic::BasePort>("BasePort"),
    single<&modPublic::SockOk>("SockOk"),
    single<&modPublic::BindError>("BindError"),
    single<&modPublic::sDecimal>("sDecimal"),
    single<&modPublic::Sep>("Sep"),
    single<&modPublic::DataRecord>("DataRecord"),
    single<&modPublic::ReceivedText>("ReceivedText"),
    single<&modPublic::CockpitName>("CockpitName"),
    single<&modPublic::CockpitPath>("CockpitPath"),
    single<&modPublic::JoysticksOnValue>("JoysticksOnValue"),
    single<&modPublic::ShowTipValue>("ShowTipValue"),
    single<&modPublic::SoundDeviceId>("SoundDeviceId"),
    single<&modPublic::OperatorStart>("OperatorStart"),
    single<&modPublic::FmcName>("FmcName"),
    single<&modPublic::EngineCount>("EngineCount"),
    single<&modPublic::EngineCount2>("EngineCount2"),
    single<&modPublic::EngineTypeRaw>("EngineTypeRaw"),
    single<&modPublic::EngineType>("EngineType"),
    single<&modPublic::ZuluTime>("ZuluTime"),
    single<&modPublic::Paused>("Paused"),
    single<&modPublic::AutoCoordination>("AutoCoordination"),
    single<&modPublic::FrameRateByte>("FrameRateByte"),
    single<&modPublic::LightsByte1>("LightsByte1"),
    single<&modPublic::LightsByte2>("LightsByte2"),
    single<&modPublic::LightsByte3>("LightsByte3"),
    single<&modPublic::LandingLights>("LandingLights"),
    single<&modPublic::PitotHeat>("PitotHeat"),
    single<&modPublic::MagVar>("MagVar"),
    single<&modPublic::GroundSpeed>("GroundSpeed"),
    single<&modPublic::Tas>("Tas"),
    single<&modPublic::Ias>("Ias"),
    single<&modPublic::BarberPole>("BarberPole"),
    single<&modPublic::VerticalSpeed>("VerticalSpeed"),
    single<&modPublic::AltimeterQnh>("AltimeterQnh"),
    single<&modPublic::Adf1Freq>("Adf1Freq"),
    single<&modPublic::Adf2Freq>("Adf2Freq"),
    single<&modPublic::Adf2Bearing>("Adf2Bearing"),
    single<&modPublic::Adf2Id>("Adf2Id"),
    single<&modPublic::Adf2Name>("Adf2Name"),
    single<&modPublic::Com1Freq>("Com1Freq"),
    single<&modPublic::Nav1Freq>("Nav1Freq"),
    single<&modPublic::Nav2Freq>("Nav2Freq"),
    single<&modPublic::TransponderCode>("TransponderCode"),
    single<&modPublic::Com2Freq>("Com2Freq"),
    single<&modPublic::Com1Standby>("Com1Standby"),
    single<&modPublic::Com2Standby>("Com2Standby"),
    single<&modPublic::Nav1Standby>("Nav1Standby"),
    single<&modPublic::Nav2Standby>("Nav2Standby"),
    single<&modPublic::OnGround>("OnGround"),
    single<&modPublic::TurnCoordinatorBall>("TurnCoordinatorBall"),
    single<&modPublic::Word378>("Word378"),
    single<&modPublic::TurnRate>("TurnRate"),
    single<&modPublic::SouthernLatitudes>("SouthernLatitudes"),
    single<&modPublic::Latitude>("Latitude"),
    single<&modPublic::Longitude>("Longitude"),
    single<&modPublic::AircraftAltitude>("AircraftAltitude"),
    single<&modPublic::Pitch>("Pitch"),
    single<&modPublic::Bank>("Bank"),
    single<&modPublic::TrueHeading>("TrueHeading"),
    single<&modPublic::MagHeading>("MagHeading"),
    single<&modPublic::Double0B18>("Double0B18"),
    single<&modPublic::GrossWeight>("GrossWeight"),
    single<&modPublic::RadioAltitude>("RadioAltitude"),
    single<&modPublic::EngineCombustionBits>("EngineCombustionBits"),
    single<&modPublic::FuelLbPerGallon>("FuelLbPerGallon"),
    single<&modPublic::FuelSelector>("FuelSelector"),
    single<&modPublic::Word0B00Percent>("Word0B00Percent"),
    single<&modPublic::FuelTotalLb>("FuelTotalLb"),
    single<&modPublic::ElevatorTrimDeg>("ElevatorTrimDeg"),
    single<&modPublic::AileronTrimDeg>("AileronTrimDeg"),
    single<&modPublic::ElevatorInput>("ElevatorInput"),
    single<&modPublic::AileronInput>("AileronInput"),
    single<&modPublic::RudderInput>("RudderInput"),
    single<&modPublic::ElevatorTrimInput>("ElevatorTrimInput"),
    single<&modPublic::LeftBrake>("LeftBrake"),
    single<&modPublic::RightBrake>("RightBrake"),
    single<&modPublic::ParkingBrake>("ParkingBrake"),
    single<&modPublic::Word0BCA>("Word0BCA"),
    single<&modPublic::SpoilersArm>("SpoilersArm"),
    single<&modPublic::SpoilersControl>("SpoilersControl"),
    single<&modPublic::FlapsControl>("FlapsControl"),
    single<&modPublic::FlapIncrement>("FlapIncrement"),
    single<&modPublic::FlapPositions>("FlapPositions"),
    single<&modPublic::FlapsPosition>("FlapsPosition"),
    single<&modPublic::FlapsPositionRight>("FlapsPositionRight"),
    single<&modPublic::GearControl>("GearControl"),
    single<&modPublic::GearNose>("GearNose"),
    single<&modPublic::GearRight>("GearRight"),
    single<&modPublic::GearLeft>("GearLeft"),
    single<&modPublic::LocalTimeText>("LocalTimeText"),
    single<&modPublic::Word0C3EDeg>("Word0C3EDeg"),
    single<&modPublic::Adf1Bearing>("Adf1Bearing"),
    single<&modPublic::Vor1Id>("Vor1Id"),
    single<&modPublic::Vor2Id>("Vor2Id"),
    single<&modPublic::Adf1Id>("Adf1Id"),
    single<&modPublic::Byte3BFB>("Byte3BFB"),
    single<&modPublic::OutsideAirTemp>("OutsideAirTemp"),
    single<&modPublic::WindSpeedKt>("WindSpeedKt"),
    single<&modPublic::WindDirection>("WindDirection"),
    single<&modPublic::AmbientQnh>("AmbientQnh"),
    single<&modPublic::Word0EEE>("Word0EEE"),
    single<&modPublic::GForce>("GForce"),
    single<&modPublic::AngleOfAttack>("AngleOfAttack"),
    single<&modPublic::Mach>("Mach"),
    single<&modPublic::TotalAirTemp>("TotalAirTemp"),
    single<&modPublic::TotalAirTempSlow>("TotalAirTempSlow"),
    single<&modPublic::NavGpsSwitch>("NavGpsSwitch"),
    single<&modPublic::MasterBattery>("MasterBattery"),
    single<&modPublic::AvionicsMaster>("AvionicsMaster"),
    single<&modPublic::Long2E88>("Long2E88"),
    single<&modPublic::Long2EC8>("Long2EC8"),
    single<&modPublic::FailureText>("FailureText"),
    single<&modPublic::ApMasterSim>("ApMasterSim"),
    single<&modPublic::ApWingLevelerSim>("ApWingLevelerSim"),
    single<&modPublic::ApNavHoldSim>("ApNavHoldSim"),
    single<&modPublic::ApHeadingHoldSim>("ApHeadingHoldSim"),
    single<&modPublic::ApAltHoldSim>("ApAltHoldSim"),
    single<&modPublic::ApAttitudeHoldSim>("ApAttitudeHoldSim"),
    single<&modPublic::ApHeadingSim>("ApHeadingSim"),
    single<&modPublic::ApAltitudeSim>("ApAltitudeSim"),
    single<&modPublic::ApSpeedHoldSim>("ApSpeedHoldSim"),
    single<&modPublic::ApIasSim>("ApIasSim"),
    single<&modPublic::ApMachHoldSim>("ApMachHoldSim"),
    single<&modPublic::ApMachSim>("ApMachSim"),
    single<&modPublic::ApVsHoldSim>("ApVsHoldSim"),
    single<&modPublic::ApVsSim>("ApVsSim"),
    single<&modPublic::ApRpmHoldSim>("ApRpmHoldSim"),
    single<&modPublic::ApRpmSim>("ApRpmSim"),
    single<&modPublic::ApGsHoldSim>("ApGsHoldSim"),
    single<&modPublic::ApApproachHoldSim>("ApApproachHoldSim"),
    single<&modPublic::ApBcHoldSim>("ApBcHoldSim"),
    single<&modPublic::YawDamperSim>("YawDamperSim"),
    single<&modPublic::ToGaSim>("ToGaSim"),
    single<&modPublic::AutoThrottleArmSim>("AutoThrottleArmSim"),
    single<&modPublic::ApEngaged>("ApEngaged"),
    single<&modPublic::FdActive>("FdActive"),
    single<&modPublic::FdPitch>("FdPitch"),
    single<&modPublic::FdBank>("FdBank"),
    single<&modPublic::LogVerbose>("LogVerbose"),
    single<&modPublic::CrossingLat>("CrossingLat"),
    single<&modPublic::CrossingLon>("CrossingLon"),
    single<&modPublic::AvgIas>("AvgIas"),
    single<&modPublic::PrevAvgIas>("PrevAvgIas"),
    single<&modPublic::CalcVerticalSpeed>("CalcVerticalSpeed"),
    single<&modPublic::AvgVerticalSpeed>("AvgVerticalSpeed"),
    single<&modPublic::PrevAltitude>("PrevAltitude"),
    single<&modPublic::ClientValueC>("ClientValueC"),
    single<&modPublic::StickMessage>("StickMessage"),
    fields<&modPublic::FuelTanks, &FuelTank::Level>("FuelTanks", ".Level"),
    fields<&modPublic::FuelTanks, &FuelTank::Capacity>("FuelTanks", ".Capacity"),
    fields<&modPublic::FlapTable, &FlapDetent::Limit>("FlapTable", ".Limit"),
    fields<&modPublic::FlapTable, &FlapDetent::Degrees>("FlapTable", ".Degrees"),
    fields<&modPublic::FlapTable, &FlapDetent::Position>("FlapTable", ".Position"),
    elements<&modPublic::Electrical>("Electrical"),
    elements<&modPublic::FailureFlags>("FailureFlags"),
    elements<&modPublic::WeatherSums>("WeatherSums"),
    fields<&modPublic::Engines, &Engine::ThrustLever>("Engines", ".ThrustLever"),
    fields<&modPublic::Engines, &Engine::PropValue>("Engines", ".PropValue"),
    fields<&modPublic::Engines, &Engine::Mixture>("Engines", ".Mixture"),
    fields<&modPublic::Engines, &Engine::Starter>("Engines", ".Starter"),
    fields<&modPublic::Engines, &Engine::RecordedStart>("Engines", ".RecordedStart"),
    fields<&modPublic::Engines, &Engine::Combustion>("Engines", ".Combustion"),
    fields<&modPublic::Engines, &Engine::N2>("Engines", ".N2"),
    fields<&modPublic::Engines, &Engine::N1>("Engines", ".N1"),
    fields<&modPublic::Engines, &Engine::Epr>("Engines", ".Epr"),
    fields<&modPublic::Engines, &Engine::AntiIce>("Engines", ".AntiIce"),
    fields<&modPublic::Engines, &Engine::OilTemp>("Engines", ".OilTemp"),
    fields<&modPublic::Engines, &Engine::OilPressure>("Engines", ".OilPressure"),
    fields<&modPublic::Engines, &Engine::Egt>("Engines", ".Egt"),
    fields<&modPublic::Engines, &Engine::Word08C0>("Engines", ".Word08C0"),
    fields<&modPublic::Engines, &Engine::OilQuantity>("Engines", ".OilQuantity"),
    fields<&modPublic::Engines, &Engine::Vibration>("Engines", ".Vibration"),
    fields<&modPublic::Engines, &Engine::HydPressure>("Engines", ".HydPressure"),
    fields<&modPublic::Engines, &Engine::HydQuantity>("Engines", ".HydQuantity"),
    fields<&modPublic::Engines, &Engine::Cht>("Engines", ".Cht"),
    fields<&modPublic::Engines, &Engine::Itt>("Engines", ".Itt"),
    fields<&modPublic::Engines, &Engine::Torque>("Engines", ".Torque"),
    fields<&modPublic::Engines, &Engine::Word08F8>("Engines", ".Word08F8"),
    fields<&modPublic::Engines, &Engine::Word0908>("Engines", ".Word0908"),
    fields<&modPublic::Engines, &Engine::FuelFlow>("Engines", ".FuelFlow"),
    fields<&modPublic::Engines, &Engine::GeneratorA>("Engines", ".GeneratorA"),
    fields<&modPublic::Engines, &Engine::GeneratorB>("Engines", ".GeneratorB"),
    fields<&modPublic::Engines, &Engine::FuelUsedLb>("Engines", ".FuelUsedLb"),
    fields<&modPublic::Engines, &Engine::N1Target>("Engines", ".N1Target"),
    fields<&modPublic::Engines, &Engine::ClientValueB>("Engines", ".ClientValueB"),
    fields<&modPublic::Engines, &Engine::N1Prev>("Engines", ".N1Prev"),
    fields<&modPublic::NavRadios, &NavRadio::LocNeedle>("NavRadios", ".LocNeedle"),
    fields<&modPublic::NavRadios, &NavRadio::GsNeedle>("NavRadios", ".GsNeedle"),
    fields<&modPublic::NavRadios, &NavRadio::BackCourse>("NavRadios", ".BackCourse"),
    fields<&modPublic::NavRadios, &NavRadio::ToFrom>("NavRadios", ".ToFrom"),
    fields<&modPublic::NavRadios, &NavRadio::GsFlag>("NavRadios", ".GsFlag"),
    fields<&modPublic::NavRadios, &NavRadio::Obs>("NavRadios", ".Obs"),
    fields<&modPublic::NavRadios, &NavRadio::Radial>("NavRadios", ".Radial"),
    fields<&modPublic::NavRadios, &NavRadio::IlsHeading>("NavRadios", ".IlsHeading"),
    fields<&modPublic::NavRadios, &NavRadio::IlsSlope>("NavRadios", ".IlsSlope"),
    fields<&modPublic::NavRadios, &NavRadio::OuterMarker>("NavRadios", ".OuterMarker"),
    fields<&modPublic::NavRadios, &NavRadio::MiddleMarker>("NavRadios", ".MiddleMarker"),
    fields<&modPublic::NavRadios, &NavRadio::InnerMarker>("NavRadios", ".InnerMarker"),
    fields<&modPublic::NavRadios, &NavRadio::DmeDistance>("NavRadios", ".DmeDistance"),
    fields<&modPublic::NavRadios, &NavRadio::DmeSpeed>("NavRadios", ".DmeSpeed"),
    elements<&modPublic::RadioValues>("RadioValues"),
    elements<&modPublic::StateValues>("StateValues"),
    elements<&modPublic::ApValues>("ApValues"),
    elements<&modPublic::MixtureLevers>("MixtureLevers"),
    elements<&modPublic::ThrottleLevers>("ThrottleLevers"),
    elements<&modPublic::StandbyValues>("StandbyValues"),
    elements<&modPublic::SwitchPair>("SwitchPair"),
    elements<&modPublic::PanelWord>("PanelWord"),
    elements<&modPublic::ButtonStates>("ButtonStates"),
    elements<&modPublic::FuelBurnt>("FuelBurnt"),
    elements<&modPublic::EnginePan>("EnginePan"),
};

std::string nameOf(const Member& member, int index) {
  if (index == Member::NoArray) return member.name;
  return member.name + ("(" + std::to_string(index) + ")") + member.field;
}

std::vector<StoreVariable> allVariables() {
  std::vector<StoreVariable> all;
  for (const Member& member : Members)
    for (int index = member.first; index <= member.last; ++index)
      all.emplace_back(nameOf(member, index), member.read, index, member.isText);
  return all;
}

RuntimeError unknown(std::string_view name) {
  std::vector<std::string> names;
  for (const StoreVariable& variable : storeVariables()) names.push_back(variable.name());
  const auto candidates = nearNames(name, names);
  std::string near;
  for (const std::string& candidate : candidates) near += (near.empty() ? "" : ", ") + candidate;
  if (!near.empty()) near = (candidates.size() == 1 ? "; near it is " : "; near it are ") + near;
  return {RuntimeError::InvalidCall, "no variable \"" + std::string(name) + "\"" + near};
}

}  // namespace

const std::vector<StoreVariable>& storeVariables() {
  static const std::vector<StoreVariable> variables = allVariables();
  return variables;
}

const StoreVariable& storeVariableNamed(std::string_view name) {
  const auto& all = storeVariables();
  const auto found = std::find_if(all.begin(), all.end(), [name](const StoreVariable& variable) {
    return equalIgnoringCase(variable.name(), name);
  });
  if (found == all.end()) throw unknown(name);
  return *found;
}

}  // namespace vorlent
