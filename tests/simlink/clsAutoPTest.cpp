#include "simlink/AccessorTest.h"

namespace vorlent {
namespace {

class ClsAutoP : public AccessorTest {
 protected:
  clsAutoP& autoP() { return *t.server.accessors.autoP; }

  void expectValue(void (clsAutoP::*set)(float), float value, const Write& expected) {
    expectWrites("value " + std::to_string(value), [&] { (autoP().*set)(value); }, {expected});
  }
};

struct Switch {
  const char* name;
  void (clsAutoP::*set)(float);
  std::uint32_t offset;
};

constexpr Switch Switches[] = {
    {"apMaster", &clsAutoP::apMaster, 0x07BC},
    {"apWingLeveller", &clsAutoP::apWingLeveller, 0x07C0},
    {"apNav1Hold", &clsAutoP::apNav1Hold, 0x07C4},
    {"apHeadingHold", &clsAutoP::apHeadingHold, 0x07C8},
    {"apAltitudeHold", &clsAutoP::apAltitudeHold, 0x07D0},
    {"apAttitudeHold", &clsAutoP::apAttitudeHold, 0x07D8},
    {"apAirspeedHold", &clsAutoP::apAirspeedHold, 0x07DC},
    {"apMachNumberHold", &clsAutoP::apMachNumberHold, 0x07E4},
    {"apVSpeedHold", &clsAutoP::apVSpeedHold, 0x07EC},
    {"apGlideslopeHold", &clsAutoP::apGlideslopeHold, 0x07FC},
    {"apLocalizerHold", &clsAutoP::apLocalizerHold, 0x0800},
    {"apBackCourseHold", &clsAutoP::apBackCourseHold, 0x0804},
    {"apYawDamper", &clsAutoP::apYawDamper, 0x0808},
    {"apToGa", &clsAutoP::apToGa, 0x080C},
    {"apAutoThrottle", &clsAutoP::apAutoThrottle, 0x0810},
};

TEST_F(ClsAutoP, SwitchIsOneByteCutToAWholeNumber) {
  for (const auto& [name, set, offset] : Switches) {
    const auto value = [this, set = set](float x) { return [=, this] { (autoP().*set)(x); }; };
    expectWrites(name, value(1), {{offset, {1}}});
    expectWrites(name, value(0), {{offset, {0}}});
    expectWrites(name, value(1.9F), {{offset, {1}}});
    expectWrites(name, value(-0.9F), {{offset, {0}}});
    expectWrites(name, value(255.9F), {{offset, {255}}});
  }
}

TEST_F(ClsAutoP, SwitchOutsideAByteIsAnOverflowAndWritesNothing) {
  for (const auto& [name, set, offset] : Switches)
    for (const float x : {-1.F, 256.F, 1e10F, NaN})
      expectOverflow(name, [this, set = set, x] { (autoP().*set)(x); });
}

TEST_F(ClsAutoP, HeadingIsATurnOfASixteenBitCounter) {
  expectValue(&clsAutoP::apHeading, 0, {0x07CC, {0x00, 0x00}});
  expectValue(&clsAutoP::apHeading, 1, {0x07CC, {0xB6, 0x00}});
  expectValue(&clsAutoP::apHeading, 90, {0x07CC, {0x00, 0x40}});
  expectValue(&clsAutoP::apHeading, 180, {0x07CC, {0x00, 0x80}});
  expectValue(&clsAutoP::apHeading, 359, {0x07CC, {0x4A, 0xFF}});
}

TEST_F(ClsAutoP, HeadingBeyondATurnIsItsLowSixteenBits) {
  expectValue(&clsAutoP::apHeading, 360, {0x07CC, {0x00, 0x00}});
  expectValue(&clsAutoP::apHeading, 361, {0x07CC, {0xB6, 0x00}});
  expectValue(&clsAutoP::apHeading, -90, {0x07CC, {0x00, 0xC0}});
}

TEST_F(ClsAutoP, HeadingIsNeverWrittenWhereTheBugIsRead) {
  link.Offset_APHeading(0x66C0);
  link.Factor_APHeading(1);
  expectValue(&clsAutoP::apHeading, 90, {0x07CC, {0x00, 0x40}});
}

TEST_F(ClsAutoP, AltitudeIsFourBytes) {
  expectValue(&clsAutoP::apAltitude, 0, {0x07D4, {0x00, 0x00, 0x00, 0x00}});
  expectValue(&clsAutoP::apAltitude, 10000, {0x07D4, {0xFA, 0xFF, 0xE7, 0x0B}});  // 199753722
  expectValue(&clsAutoP::apAltitude, 35000, {0x07D4, {0xEA, 0xFF, 0xAB, 0x29}});  // 699138026
  expectValue(&clsAutoP::apAltitude, -100, {0x07D4, {0x1F, 0x85, 0xE1, 0xFF}});   // -1997537
}

TEST_F(ClsAutoP, AltitudeBeyondThirtyTwoBitsIsAnOverflow) {
  expectValue(&clsAutoP::apAltitude, 107506, {0x07D4, {0xE8, 0xD3, 0xFF, 0x7F}});
  for (const float feet : {107507.F, -107507.F, 1e30F, NaN})
    expectOverflow(std::to_string(feet), [&] { autoP().apAltitude(feet); });
}

TEST_F(ClsAutoP, AirspeedIsRoundedHalfToEven) {
  expectValue(&clsAutoP::apAirSpeed, 250, {0x07E2, {0xFA, 0x00}});
  expectValue(&clsAutoP::apAirSpeed, 250.5F, {0x07E2, {0xFA, 0x00}});
  expectValue(&clsAutoP::apAirSpeed, 251.5F, {0x07E2, {0xFC, 0x00}});
  expectValue(&clsAutoP::apAirSpeed, 299.75F, {0x07E2, {0x2C, 0x01}});
}

TEST_F(ClsAutoP, MachIsInUnitsOf65500) {
  expectValue(&clsAutoP::ApMachNumber, 0, {0x07E8, {0x00, 0x00}});
  expectValue(&clsAutoP::ApMachNumber, 0.78F, {0x07E8, {0x92, 0xC7}});  // 51090
  expectValue(&clsAutoP::ApMachNumber, 1, {0x07E8, {0xDC, 0xFF}});      // 65500
  expectValue(&clsAutoP::ApMachNumber, 1.78F, {0x07E8, {0x6E, 0xC7}});  // 116590 - 65536
}

TEST_F(ClsAutoP, VerticalSpeedBelowZeroHas65535Added) {
  expectValue(&clsAutoP::apVertSpeed, 0, {0x07F2, {0x00, 0x00}});
  expectValue(&clsAutoP::apVertSpeed, 1800, {0x07F2, {0x08, 0x07}});
  expectValue(&clsAutoP::apVertSpeed, -1, {0x07F2, {0xFE, 0xFF}});     // 65534
  expectValue(&clsAutoP::apVertSpeed, -1000, {0x07F2, {0x17, 0xFC}});  // 64535
  expectValue(&clsAutoP::apVertSpeed, -8000, {0x07F2, {0xBF, 0xE0}});  // 57535
}

TEST_F(ClsAutoP, VerticalSpeedIsRoundedAfter65535IsAdded) {
  expectValue(&clsAutoP::apVertSpeed, -0.25F, {0x07F2, {0xFF, 0xFF}});    // 65534.75
  expectValue(&clsAutoP::apVertSpeed, -1000.5F, {0x07F2, {0x16, 0xFC}});  // 64534.5
  expectValue(&clsAutoP::apVertSpeed, -1001.5F, {0x07F2, {0x16, 0xFC}});  // 64533.5
}

TEST_F(ClsAutoP, RpmIsFourBytes) {
  expectValue(&clsAutoP::apRpm, 70000, {0x07F8, {0x70, 0x11, 0x01, 0x00}});
  expectValue(&clsAutoP::apRpm, -1, {0x07F8, {0xFF, 0xFF, 0xFF, 0xFF}});
  expectValue(&clsAutoP::apRpm, 2.5F, {0x07F8, {0x02, 0x00, 0x00, 0x00}});
  expectOverflow("2 to the 31st", [this] { autoP().apRpm(2147483648.F); });
}

TEST_F(ClsAutoP, TwoBytesOverflowBeyondThirtyTwoBitsOnly) {
  expectValue(&clsAutoP::apAirSpeed, 65537, {0x07E2, {0x01, 0x00}});
  for (const float x : {2147483648.F, -1e10F, NaN}) {
    expectOverflow("apHeading", [&] { autoP().apHeading(x); });
    expectOverflow("apAirSpeed", [&] { autoP().apAirSpeed(x); });
    expectOverflow("ApMachNumber", [&] { autoP().ApMachNumber(x); });
    expectOverflow("apVertSpeed", [&] { autoP().apVertSpeed(x); });
  }
}

struct Lamp {
  std::int16_t mode;
  std::int32_t clsAutoP::*offset;
};

constexpr Lamp Lamps[] = {
    {1, &clsAutoP::Offset_LVLCH},     {2, &clsAutoP::Offset_LNAV},
    {3, &clsAutoP::Offset_VNAV},      {4, &clsAutoP::Offset_CMDL},
    {5, &clsAutoP::Offset_CMDR},      {6, &clsAutoP::Offset_CWSL},
    {7, &clsAutoP::Offset_CWSR},      {8, &clsAutoP::Offset_CO},
    {9, &clsAutoP::Offset_AT},        {10, &clsAutoP::Offset_TOGA},
    {11, &clsAutoP::Offset_AP},       {12, &clsAutoP::Offset_INTV},
    {13, &clsAutoP::Offset_EXEC},     {14, &clsAutoP::Offset_HOLDIAS},
    {15, &clsAutoP::Offset_HOLDMACH}, {16, &clsAutoP::Offset_HOLDALT},
    {17, &clsAutoP::Offset_HOLDHDG},  {18, &clsAutoP::Offset_HOLDNAV1},
    {19, &clsAutoP::Offset_HOLDLOC},  {20, &clsAutoP::Offset_HOLDGS},
    {21, &clsAutoP::Offset_HOLDVS},   {22, &clsAutoP::Offset_HOLDN1},
};

class ClsAutoPLamps : public ClsAutoP {
 protected:
  void SetUp() override {
    ClsAutoP::SetUp();
    autoP().Do_Write_Offsets = 1;
  }
  Call lamp(int mode, std::int32_t value) {
    return [=, this] { autoP().apMcpModes(static_cast<std::int16_t>(mode), value); };
  }
};

TEST_F(ClsAutoPLamps, EveryModeWritesOneByteToItsOwnOffset) {
  for (const Lamp& row : Lamps) autoP().*row.offset = 0x6600 + 16 * row.mode;
  for (const Lamp& row : Lamps) {
    const auto offset = static_cast<std::uint32_t>(0x6600 + 16 * row.mode);
    expectWrites("mode " + std::to_string(row.mode), lamp(row.mode, 1), {{offset, {1}}});
    expectWrites("mode " + std::to_string(row.mode), lamp(row.mode, 0), {{offset, {0}}});
  }
}

TEST_F(ClsAutoPLamps, NothingIsWrittenWhileOffsetsAreNotMirrored) {
  autoP().Offset_AP = 0x6600;
  for (const std::int32_t off : {0, -1}) {
    autoP().Do_Write_Offsets = off;
    expectWrites("mode 11", lamp(11, 1), {});
  }
}

TEST_F(ClsAutoPLamps, AnythingFromOneOnMirrors) {
  autoP().Offset_AP = 0x6600;
  autoP().Do_Write_Offsets = 2;
  expectWrites("mode 11", lamp(11, 1), {{0x6600, {1}}});
}

TEST_F(ClsAutoPLamps, AnOffsetThatWasNeverSetIsOffsetZero) {
  expectWrites("mode 11", lamp(11, 1), {{0, {1}}});
}

TEST_F(ClsAutoPLamps, NumbersThatNoLampHasWriteNothing) {
  for (const int mode : {0, 23, -1, 32767, -32768})
    expectWrites("mode " + std::to_string(mode), lamp(mode, 1), {});
}

TEST_F(ClsAutoPLamps, ValueOutsideAByteIsAnOverflow) {
  expectWrites("255", lamp(1, 255), {{0, {255}}});
  expectOverflow("256", lamp(1, 256));
  expectOverflow("-1", lamp(1, -1));
}

TEST_F(ClsAutoPLamps, ValueOfALampThatIsNotMirroredIsNotLookedAt) {
  autoP().Do_Write_Offsets = 0;
  expectWrites("256", lamp(1, 256), {});
}

TEST_F(ClsAutoPLamps, MirroringStartsAsToldAtCreation) {
  EXPECT_EQ(clsAutoP(*t.server.fsuipc, true).Do_Write_Offsets, 1);
  EXPECT_EQ(clsAutoP(*t.server.fsuipc, false).Do_Write_Offsets, 0);
}

TEST_F(ClsAutoPLamps, AClickOnTheMenuEntryTurnsMirroringOnAndOff) {
  autoP().Offset_AP = 0x6600;
  autoP().Do_Write_Offsets = 0;
  t.form.Settings(4).press();
  expectWrites("on", lamp(11, 1), {{0x6600, {1}}});
  t.form.Settings(4).press();
  expectWrites("off", lamp(11, 1), {});
}

}  // namespace
}  // namespace vorlent
