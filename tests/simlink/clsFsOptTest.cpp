#include "simlink/AccessorTest.h"

namespace vorlent {
namespace {

struct Option {
  const char* name;
  void (clsFsOpt::*set)(float);
  std::uint32_t offset;
};

constexpr Option Options[] = {
    {"FSPaused", &clsFsOpt::FSPaused, 0x0264},
    {"NavLights", &clsFsOpt::NavLights, 0x0280},
    {"FSStrobeLights", &clsFsOpt::FSStrobeLights, 0x0281},
    {"FSLandingLights", &clsFsOpt::FSLandingLights, 0x028C},
    {"FSPitotHeat", &clsFsOpt::FSPitotHeat, 0x029C},
    {"FSGpsSwitch", &clsFsOpt::FSGpsSwitch, 0x132C},
    {"FSSlew", &clsFsOpt::FSSlew, 0x05DC},
    {"EfisActive", &clsFsOpt::EfisActive, 0x0E5A},
    {"EfisVorElev", &clsFsOpt::EfisVorElev, 0x0E5C},
    {"EfisDensity", &clsFsOpt::EfisDensity, 0x0E5E},
    {"EfisRange", &clsFsOpt::EfisRange, 0x0E60},
    {"EfisMode", &clsFsOpt::EfisMode, 0x0E62},
    {"EfisVorOrIls", &clsFsOpt::EfisVorOrIls, 0x0E64},
    {"EfisNav1Or2", &clsFsOpt::EfisNav1Or2, 0x0E66},
    {"EfisDisplay", &clsFsOpt::EfisDisplay, 0x0E68},
    {"FDirActive", &clsFsOpt::FDirActive, 0x2EE0},
    {"Battery", &clsFsOpt::Battery, 0x281C},
    {"Avionics", &clsFsOpt::Avionics, 0x2E80},
    {"Autofeather", &clsFsOpt::Autofeather, 0x2E88},
};

class ClsFsOpt : public AccessorTest {
 protected:
  Call option(const Option& row, float x) {
    return [=, this] { (t.server.accessors.fsOpt.get()->*row.set)(x); };
  }
  Call altSet(float hectopascals) {
    return [=, this] { t.server.accessors.fsOpt->AltSet(hectopascals); };
  }
};

TEST_F(ClsFsOpt, OptionIsOneByteCutToAWholeNumber) {
  for (const Option& row : Options) {
    expectWrites(row.name, option(row, 1), {{row.offset, {1}}});
    expectWrites(row.name, option(row, 0), {{row.offset, {0}}});
    expectWrites(row.name, option(row, 1.9F), {{row.offset, {1}}});
    expectWrites(row.name, option(row, 255), {{row.offset, {255}}});
  }
}

TEST_F(ClsFsOpt, OptionOutsideAByteIsAnOverflowAndWritesNothing) {
  for (const Option& row : Options)
    for (const float x : {-1.F, 256.F, NaN}) expectOverflow(row.name, option(row, x));
}

TEST_F(ClsFsOpt, AltimeterIsSixteenthsOfAHectopascalLowByteFirst) {
  expectWrites("1013.25", altSet(1013.25F), {{0x0330, {0x54}}, {0x0331, {0x3F}}});  // 16212
  expectWrites("1000", altSet(1000), {{0x0330, {0x80}}, {0x0331, {0x3E}}});         // 16000
  expectWrites("0", altSet(0), {{0x0330, {0x00}}, {0x0331, {0x00}}});
}

TEST_F(ClsFsOpt, AltimeterIsRoundedHalfToEven) {
  expectWrites("16.5 units", altSet(1.03125F), {{0x0330, {16}}, {0x0331, {0}}});
  expectWrites("17.5 units", altSet(1.09375F), {{0x0330, {18}}, {0x0331, {0}}});
}

TEST_F(ClsFsOpt, AltimeterBeyondSixteenBitsIsAnOverflowAtItsHighByte) {
  expectWrites("4095.9375", altSet(4095.9375F), {{0x0330, {0xFF}}, {0x0331, {0xFF}}});
  expectOverflow("4096.0625", altSet(4096.0625F), {{0x0330, {0x01}}});
  expectOverflow("-1", altSet(-1));
  expectOverflow("1e10", altSet(1e10F));
  expectOverflow("NaN", altSet(NaN));
}

}  // namespace
}  // namespace vorlent
