// What clients write and the aircraft has no use for stays as it was written, and is read back.

#include <gtest/gtest.h>

#include "LinkedAircraft.h"
#include "support/lamps.h"

namespace vorlent {
namespace {

struct StoredOffset {
  const char* member;
  std::uint32_t offset;
  std::size_t bytes;
  void (*write)(Server&);
  double (*read)(const modPublic&);
  double expected;
  double tolerance;
};

using S = Server;
using P = const modPublic;

constexpr StoredOffset storedOffsets[] = {
    {"apMaster", 0x07BC, 1, [](S& s) { s.accessors.autoP->apMaster(1); },
     [](P& v) -> double { return v.ApMasterSim; }, 1, 0},
    {"apWingLeveller", 0x07C0, 1, [](S& s) { s.accessors.autoP->apWingLeveller(1); },
     [](P& v) -> double { return v.ApWingLevelerSim; }, 1, 0},
    {"apNav1Hold", 0x07C4, 1, [](S& s) { s.accessors.autoP->apNav1Hold(1); },
     [](P& v) -> double { return v.ApNavHoldSim; }, 1, 0},
    {"apHeadingHold", 0x07C8, 1, [](S& s) { s.accessors.autoP->apHeadingHold(1); },
     [](P& v) -> double { return v.ApHeadingHoldSim; }, 1, 0},
    {"apHeading", 0x07CC, 2, [](S& s) { s.accessors.autoP->apHeading(123); },
     [](P& v) -> double { return v.ApHeadingSim; }, 123, 0.01},
    {"apAltitudeHold", 0x07D0, 1, [](S& s) { s.accessors.autoP->apAltitudeHold(1); },
     [](P& v) -> double { return v.ApAltHoldSim; }, 1, 0},
    {"apAltitude", 0x07D4, 4, [](S& s) { s.accessors.autoP->apAltitude(12000); },
     [](P& v) -> double { return v.ApAltitudeSim; }, 12000, 0},
    {"apAttitudeHold", 0x07D8, 1, [](S& s) { s.accessors.autoP->apAttitudeHold(1); },
     [](P& v) -> double { return v.ApAttitudeHoldSim; }, 1, 0},
    {"apAirspeedHold", 0x07DC, 1, [](S& s) { s.accessors.autoP->apAirspeedHold(1); },
     [](P& v) -> double { return v.ApSpeedHoldSim; }, 1, 0},
    {"apAirSpeed", 0x07E2, 2, [](S& s) { s.accessors.autoP->apAirSpeed(233); },
     [](P& v) -> double { return v.ApIasSim; }, 233, 0},
    {"apMachNumberHold", 0x07E4, 1, [](S& s) { s.accessors.autoP->apMachNumberHold(1); },
     [](P& v) -> double { return v.ApMachHoldSim; }, 1, 0},
    {"ApMachNumber", 0x07E8, 2, [](S& s) { s.accessors.autoP->ApMachNumber(0.74F); },
     [](P& v) -> double { return v.ApMachSim; }, 0.74, 0.0001},
    {"apVSpeedHold", 0x07EC, 1, [](S& s) { s.accessors.autoP->apVSpeedHold(1); },
     [](P& v) -> double { return v.ApVsHoldSim; }, 1, 0},
    {"apVertSpeed", 0x07F2, 2, [](S& s) { s.accessors.autoP->apVertSpeed(-1000); },
     [](P& v) -> double { return v.ApVsSim; }, -1000, 0},
    {"apRpm", 0x07F8, 4, [](S& s) { s.accessors.autoP->apRpm(88); },
     [](P& v) -> double { return v.ApRpmSim; }, 88, 0},
    {"apGlideslopeHold", 0x07FC, 1, [](S& s) { s.accessors.autoP->apGlideslopeHold(1); },
     [](P& v) -> double { return v.ApGsHoldSim; }, 1, 0},
    {"apLocalizerHold", 0x0800, 1, [](S& s) { s.accessors.autoP->apLocalizerHold(1); },
     [](P& v) -> double { return v.ApApproachHoldSim; }, 1, 0},
    {"apBackCourseHold", 0x0804, 1, [](S& s) { s.accessors.autoP->apBackCourseHold(1); },
     [](P& v) -> double { return v.ApBcHoldSim; }, 1, 0},
    {"apYawDamper", 0x0808, 1, [](S& s) { s.accessors.autoP->apYawDamper(0); },
     [](P& v) -> double { return v.YawDamperSim; }, 0, 0},
    {"apToGa", 0x080C, 1, [](S& s) { s.accessors.autoP->apToGa(1); },
     [](P& v) -> double { return v.ToGaSim; }, 1, 0},
    {"apAutoThrottle", 0x0810, 1, [](S& s) { s.accessors.autoP->apAutoThrottle(1); },
     [](P& v) -> double { return v.AutoThrottleArmSim; }, 1, 0},

    // The lever of a propeller that is not there: 60 x 163.83 is 9830, over 163.84.
    {"PropAdvance", 0x0926, 2, [](S& s) { s.accessors.eng->PropAdvance(2, 60); },
     [](P& v) -> double { return v.Engines(2).PropValue; }, 59.998, 0.001},

    {"NavLights", 0x0280, 1, [](S& s) { s.accessors.fsOpt->NavLights(0); },
     [](P& v) -> double { return v.LightsByte1; }, 0, 0},
    {"FSStrobeLights", 0x0281, 1, [](S& s) { s.accessors.fsOpt->FSStrobeLights(0); },
     [](P& v) -> double { return v.LightsByte2; }, 0, 0},
    {"FSLandingLights", 0x028C, 1, [](S& s) { s.accessors.fsOpt->FSLandingLights(1); },
     [](P& v) -> double { return v.LandingLights; }, 1, 0},
    {"FSPitotHeat", 0x029C, 1, [](S& s) { s.accessors.fsOpt->FSPitotHeat(0); },
     [](P& v) -> double { return v.PitotHeat; }, 0, 0},
    {"FSGpsSwitch", 0x132C, 1, [](S& s) { s.accessors.fsOpt->FSGpsSwitch(1); },
     [](P& v) -> double { return v.NavGpsSwitch; }, 1, 0},
    {"EfisActive", 0x0E5A, 1, [](S& s) { s.accessors.fsOpt->EfisActive(1); },
     [](P& v) -> double { return v.WeatherSums(1); }, 1, 0},
    // 3 x 3.28084 rounded.
    {"EfisVorElev", 0x0E5C, 1, [](S& s) { s.accessors.fsOpt->EfisVorElev(3); },
     [](P& v) -> double { return v.WeatherSums(2); }, 10, 0},
    {"EfisDensity", 0x0E5E, 1, [](S& s) { s.accessors.fsOpt->EfisDensity(2); },
     [](P& v) -> double { return v.WeatherSums(3); }, 2, 0},
    {"EfisRange", 0x0E60, 1, [](S& s) { s.accessors.fsOpt->EfisRange(40); },
     [](P& v) -> double { return v.WeatherSums(4); }, 40, 0},
    {"EfisMode", 0x0E62, 1, [](S& s) { s.accessors.fsOpt->EfisMode(3); },
     [](P& v) -> double { return v.WeatherSums(5); }, 3, 0},
    {"EfisVorOrIls", 0x0E64, 1, [](S& s) { s.accessors.fsOpt->EfisVorOrIls(1); },
     [](P& v) -> double { return v.WeatherSums(6); }, 1, 0},
    {"EfisNav1Or2", 0x0E66, 1, [](S& s) { s.accessors.fsOpt->EfisNav1Or2(2); },
     [](P& v) -> double { return v.WeatherSums(7); }, 2, 0},
    {"EfisDisplay", 0x0E68, 1, [](S& s) { s.accessors.fsOpt->EfisDisplay(1); },
     [](P& v) -> double { return v.WeatherSums(8); }, 1, 0},
    {"Battery", 0x281C, 1, [](S& s) { s.accessors.fsOpt->Battery(0); },
     [](P& v) -> double { return v.MasterBattery; }, 0, 0},
    {"Avionics", 0x2E80, 1, [](S& s) { s.accessors.fsOpt->Avionics(0); },
     [](P& v) -> double { return v.AvionicsMaster; }, 0, 0},
    {"Autofeather", 0x2E88, 1, [](S& s) { s.accessors.fsOpt->Autofeather(1); },
     [](P& v) -> double { return v.Long2E88; }, 1, 0},

    {"Comm1SBFreq", 0x311B, 1, [](S& s) { s.accessors.radio->Comm1SBFreq(132.5F); },
     [](P& v) -> double { return v.Com1Standby; }, 132.5, 0.001},
    {"Comm1Freq", 0x034F, 1, [](S& s) { s.accessors.radio->Comm1Freq(118.25F); },
     [](P& v) -> double { return v.Com1Freq; }, 118.25, 0.001},
    {"Comm2Freq", 0x3119, 1, [](S& s) { s.accessors.radio->Comm2Freq(127.35F); },
     [](P& v) -> double { return v.Com2Freq; }, 127.35, 0.001},
    {"Comm2SBFreq", 0x311D, 1, [](S& s) { s.accessors.radio->Comm2SBFreq(119.05F); },
     [](P& v) -> double { return v.Com2Standby; }, 119.05, 0.001},
    {"Nav1Freq", 0x0351, 1, [](S& s) { s.accessors.radio->Nav1Freq(111.95F); },
     [](P& v) -> double { return v.Nav1Freq; }, 111.95, 0.001},
    {"Nav1SBFreq", 0x311F, 1, [](S& s) { s.accessors.radio->Nav1SBFreq(113.1F); },
     [](P& v) -> double { return v.Nav1Standby; }, 113.1, 0.001},
    {"Nav2Freq", 0x0353, 1, [](S& s) { s.accessors.radio->Nav2Freq(108.05F); },
     [](P& v) -> double { return v.Nav2Freq; }, 108.05, 0.001},
    {"Nav2SBFreq", 0x3121, 1, [](S& s) { s.accessors.radio->Nav2SBFreq(116.7F); },
     [](P& v) -> double { return v.Nav2Standby; }, 116.7, 0.001},
    {"XpndrCode", 0x0355, 1, [](S& s) { s.accessors.radio->XpndrCode(7700); },
     [](P& v) -> double { return v.TransponderCode; }, 7700, 0},
    // 118.10 before a flight.
    {"Comm1Frac", 0x034E, 1, [](S& s) { s.accessors.radio->Comm1Frac(0.25F); },
     [](P& v) -> double { return v.Com1Freq; }, 118.25, 0.001},
    {"AdfFreq", 0x034D, 1, [](S& s) { s.accessors.radio->AdfFreq(1234.5F); },
     [](P& v) -> double { return v.Adf1Freq; }, 1234.5, 0.01},
    {"Adf2Freq", 0x02D5, 1, [](S& s) { s.accessors.radio->Adf2Freq(345.5F); },
     [](P& v) -> double { return v.Adf2Freq; }, 345.5, 0.01},
    {"Vor_Dme", 0x0378, 1, [](S& s) { s.accessors.radio->Vor_Dme(1); },
     [](P& v) -> double { return v.Word378; }, 2, 0},
    {"Vor_1_obs", 0x0C4E, 2, [](S& s) { s.accessors.radio->Vor_1_obs(77); },
     [](P& v) -> double { return v.NavRadios(1).Obs; }, 77, 0},
    {"Vor_2_obs", 0x0C5E, 2, [](S& s) { s.accessors.radio->Vor_2_obs(301); },
     [](P& v) -> double { return v.NavRadios(2).Obs; }, 301, 0},

    {"AutoRudder", 0x0278, 1, [](S& s) { s.accessors.srv->AutoRudder(1); },
     [](P& v) -> double { return v.AutoCoordination; }, 1, 0},
    {"PropSync", 0x2EC8, 2, [](S& s) { s.accessors.srv->PropSync(1); },
     [](P& v) -> double { return v.Long2EC8; }, 1, 0},
    {"LeftTipPct", 0x0B8F, 1, [](S& s) { s.accessors.srv->LeftTipPct(50); },
     [](P& v) -> double { return v.FuelTanks(Tank::LeftTip).Level; }, 50, 0.001},
    {"RightTipPct", 0x0BA7, 1, [](S& s) { s.accessors.srv->RightTipPct(25); },
     [](P& v) -> double { return v.FuelTanks(Tank::RightTip).Level; }, 25, 0.001},
    {"TankSelector", 0x0AF8, 1, [](S& s) { s.accessors.srv->TankSelector(3); },
     [](P& v) -> double { return v.FuelSelector; }, 3, 0},
    {"Crossfeed", 0x0AF8, 1, [](S& s) { s.accessors.srv->Crossfeed(14); },
     [](P& v) -> double { return v.FuelSelector; }, 14, 0},
};

TEST(StoredOffsets, StayAsWrittenAndAreReadBackByThePoll) {
  LinkedAircraft linked;
  for (const StoredOffset& row : storedOffsets) {
    const auto writes = linked.write(row.write);
    ASSERT_FALSE(writes.empty()) << row.member;
    EXPECT_EQ(writes[0].offset, row.offset) << row.member;
    EXPECT_EQ(writes[0].bytes.size(), row.bytes) << row.member;
    linked.fly(1);
    EXPECT_NEAR(row.read(linked.polled()), row.expected, row.tolerance) << row.member;
  }
}

struct RawOffset {
  const char* member;
  std::uint32_t offset;
  void (*write)(Server&);
  std::uint32_t expected;
};

/// The poll makes no variable of these, or one that does not show them.
constexpr RawOffset rawOffsets[] = {
    {"FDirActive", 0x2EE0, [](S& s) { s.accessors.fsOpt->FDirActive(1); }, 1},
    {"LeftAuxPct", 0x0B84, [](S& s) { s.accessors.srv->LeftAuxPct(50); }, 0x00400000},
    {"RightAuxPct", 0x0B9C, [](S& s) { s.accessors.srv->RightAuxPct(50); }, 0x00400000},
};

TEST(StoredOffsets, KeepTheirBytesWhereThePollShowsNone) {
  LinkedAircraft linked;
  for (const RawOffset& row : rawOffsets) {
    linked.write(row.write);
    linked.fly(1);
    EXPECT_EQ(linked.memory.read<std::uint32_t>(row.offset), row.expected) << row.member;
  }
}

TEST(StoredOffsets, ThePropLeversOfBothEnginesAreThere) {
  LinkedAircraft linked;
  linked.write([](S& s) { s.accessors.eng->SetPropAdvanceAll(100); });
  linked.fly(1);
  // 16383 over 163.84
  EXPECT_NEAR(linked.polled().Engines(1).PropValue, 99.994, 0.001);
  EXPECT_NEAR(linked.polled().Engines(2).PropValue, 99.994, 0.001);
}

TEST(StoredOffsets, LampsOfTheModePanelStayInTheUserOffsets) {
  LinkedAircraft linked;
  mirrorLamps(*linked.server.server.accessors.autoP, 0x5600);
  for (std::int16_t mode = 1; mode <= 22; ++mode)
    linked.write([mode](S& s) { s.accessors.autoP->apMcpModes(mode, 100 + mode); });
  linked.fly(1);
  for (std::size_t mode = 1; mode <= 22; ++mode)
    EXPECT_EQ(linked.memory.read<std::uint8_t>(0x5600 + mode), 100 + mode) << mode;
}

}  // namespace
}  // namespace vorlent
