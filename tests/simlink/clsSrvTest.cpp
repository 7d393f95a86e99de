#include <array>

#include "simlink/AccessorTest.h"

namespace vorlent {
namespace {

class ClsSrv : public AccessorTest {
 protected:
  clsSrv& srv() { return *t.server.accessors.srv; }
  void engage(int engaged) {
    t.server.autoflight.xAutoP->ApEngaged(static_cast<std::int16_t>(engaged));
  }

  template <class Value>
  void expectValue(void (clsSrv::*set)(Value), Value value, const Write& expected) {
    expectWrites(std::to_string(value), [&] { (srv().*set)(value); }, {expected});
  }
  template <class Value>
  void expectNothing(void (clsSrv::*set)(Value), Value value) {
    expectWrites(std::to_string(value), [&] { (srv().*set)(value); }, {});
  }
};

TEST_F(ClsSrv, FuelIsFourBytesHighestFirst) {
  struct Row {
    const char* name;
    void (clsSrv::*set)(float);
    std::uint32_t base;
  };
  constexpr Row rows[] = {
      {"CentPct", &clsSrv::CentPct, 0x0B74},
      {"LeftMainPct", &clsSrv::LeftMainPct, 0x0B7C},
      {"LeftAuxPct", &clsSrv::LeftAuxPct, 0x0B84},
      {"LeftTipPct", &clsSrv::LeftTipPct, 0x0B8C},
      {"RightMainPct", &clsSrv::RightMainPct, 0x0B94},
      {"RightAuxPct", &clsSrv::RightAuxPct, 0x0B9C},
      {"RightTipPct", &clsSrv::RightTipPct, 0x0BA4},
  };
  for (const Row& row : rows) {
    const auto expectLevel = [&](float percent, const std::array<std::uint8_t, 4>& bytes) {
      expectWrites(std::string(row.name) + " " + std::to_string(percent),
                   [&] { (srv().*row.set)(percent); },
                   {{row.base + 3, {bytes[0]}},
                    {row.base + 2, {bytes[1]}},
                    {row.base + 1, {bytes[2]}},
                    {row.base, {bytes[3]}}});
    };
    expectLevel(0, {0x00, 0x00, 0x00, 0x00});
    expectLevel(100, {0x00, 0x80, 0x00, 0x00});
    expectLevel(33, {0x00, 0x2A, 0x3D, 0x71});      // 2768241
    expectLevel(200, {0x01, 0x00, 0x00, 0x00});     // 16777216
    expectLevel(0.001F, {0x00, 0x00, 0x00, 0x54});  // 83.9
  }
}

TEST_F(ClsSrv, FuelBelowZeroIsAnOverflowAtTheFirstByteThatIsNegative) {
  expectOverflow("-5", [this] { srv().CentPct(-5); }, {{0x0B77, {0x00}}});
  expectOverflow("-200", [this] { srv().CentPct(-200); });
}

TEST_F(ClsSrv, FuelBeyondThirtyTwoBitsIsAnOverflow) {
  expectOverflow("25600", [this] { srv().CentPct(25600); });
  expectOverflow("NaN", [this] { srv().CentPct(NaN); });
}

TEST_F(ClsSrv, ElevatorIsWrittenUpTo16383EitherWay) {
  expectValue(&clsSrv::ElevatorPosition, 0.F, {0x0BB2, {0x00, 0x00}});
  expectValue(&clsSrv::ElevatorPosition, 16383.F, {0x0BB2, {0xFF, 0x3F}});
  expectValue(&clsSrv::ElevatorPosition, -16383.F, {0x0BB2, {0x01, 0xC0}});
}

TEST_F(ClsSrv, ElevatorBeyond16383IsDropped) {
  for (const float value : {16384.F, -16384.F, 16383.25F, 65535.F, NaN})
    expectNothing(&clsSrv::ElevatorPosition, value);
}

TEST_F(ClsSrv, AileronRudderAndPitchAreTheLowHalfOfTheRoundedValue) {
  struct Row {
    void (clsSrv::*set)(float);
    std::uint32_t offset;
  };
  constexpr Row rows[] = {{&clsSrv::AileronPosition, 0x0BB6},
                          {&clsSrv::RudderPosition, 0x0BBA},
                          {&clsSrv::pitch, 0x0578}};
  for (const auto& [set, offset] : rows) {
    expectValue(set, 16383.F, {offset, {0xFF, 0x3F}});
    expectValue(set, -1.F, {offset, {0xFF, 0xFF}});
    expectValue(set, 65535.F, {offset, {0xFF, 0xFF}});
    expectValue(set, 40000.F, {offset, {0x40, 0x9C}});
    expectValue(set, 2.5F, {offset, {0x02, 0x00}});
    expectValue(set, 3.5F, {offset, {0x04, 0x00}});
    for (const float value : {3e9F, NaN})
      expectOverflow(std::to_string(value), [&, set = set] { (srv().*set)(value); });
  }
}

TEST_F(ClsSrv, TrimBelowZeroHas65536Added) {
  engage(1);
  expectValue(&clsSrv::TrimPosition, 0.F, {0x0BC0, {0x00, 0x00}});
  expectValue(&clsSrv::TrimPosition, 1500.F, {0x0BC0, {0xDC, 0x05}});
  expectValue(&clsSrv::TrimPosition, -1.F, {0x0BC0, {0xFF, 0xFF}});
  expectValue(&clsSrv::TrimPosition, -1500.F, {0x0BC0, {0x24, 0xFA}});  // 64036
  expectValue(&clsSrv::TrimPosition, -16383.F, {0x0BC0, {0x01, 0xC0}});
}

TEST_F(ClsSrv, TrimThatRoundsToZeroIsZero) {
  engage(1);
  expectValue(&clsSrv::TrimPosition, -0.25F, {0x0BC0, {0x00, 0x00}});
}

TEST_F(ClsSrv, TrimBeyondThirtyTwoBitsIsAnOverflow) {
  engage(1);
  expectOverflow("3e9", [this] { srv().TrimPosition(3e9F); });
  expectOverflow("NaN", [this] { srv().TrimPosition(NaN); });
}

TEST_F(ClsSrv, ElevatorAndAileronTrimAreNotWrittenWithoutTheAutopilot) {
  for (const int engaged : {0, -1}) {
    engage(engaged);
    expectNothing(&clsSrv::TrimPosition, 1500.F);
    expectNothing(&clsSrv::AileronTrim, 0.5);
  }
}

TEST_F(ClsSrv, AileronTrimIsADoubleWhileTheAutopilotIsEngaged) {
  for (const int engaged : {1, 2}) {
    engage(engaged);
    expectValue(&clsSrv::AileronTrim, -0.5, {0x2EB0, {0, 0, 0, 0, 0, 0, 0xE0, 0xBF}});
    expectValue(&clsSrv::AileronTrim, 0.1,
                {0x2EB0, {0x9A, 0x99, 0x99, 0x99, 0x99, 0x99, 0xB9, 0x3F}});
  }
}

TEST_F(ClsSrv, RudderTrimIsWrittenWithoutTheAutopilot) {
  expectValue(&clsSrv::RudderTrim, 0.25, {0x2EC0, {0, 0, 0, 0, 0, 0, 0xD0, 0x3F}});
}

TEST_F(ClsSrv, TrimInRadiansIsNeverNotANumberNorInfinite) {
  engage(1);
  for (const double radians : {double{NaN}, Infinity, -Infinity}) {
    expectOverflow("aileron", [&] { srv().AileronTrim(radians); });
    expectOverflow("rudder", [&] { srv().RudderTrim(radians); });
  }
}

TEST_F(ClsSrv, SixteenBitControlsAreWrittenAsTheyAre) {
  struct Row {
    const char* name;
    void (clsSrv::*set)(std::int16_t);
    std::uint32_t offset;
  };
  constexpr Row rows[] = {
      {"ApplyLeftBrake", &clsSrv::ApplyLeftBrake, 0x0BC4},
      {"ApplyRightBrake", &clsSrv::ApplyRightBrake, 0x0BC6},
      {"ApplyParkingBrake", &clsSrv::ApplyParkingBrake, 0x0BC8},
      {"SpoilerPosition", &clsSrv::SpoilerPosition, 0x0BD0},
      {"FlapPosition", &clsSrv::FlapPosition, 0x0BDC},
      {"GearPosition", &clsSrv::GearPosition, 0x0BE8},
      {"PropSync", &clsSrv::PropSync, 0x2EC8},
  };
  for (const Row& row : rows) {
    expectWrites(row.name, [&] { (srv().*row.set)(16383); }, {{row.offset, {0xFF, 0x3F}}});
    expectWrites(row.name, [&] { (srv().*row.set)(-2); }, {{row.offset, {0xFE, 0xFF}}});
  }
}

TEST_F(ClsSrv, BothBrakesAreLeftThenRight) {
  expectWrites("both", [this] { srv().ApplyBrakes(16383); },
               {{0x0BC4, {0xFF, 0x3F}}, {0x0BC6, {0xFF, 0x3F}}});
}

TEST_F(ClsSrv, ServicesAreOneByteCutToAWholeNumber) {
  struct Row {
    void (clsSrv::*set)(float);
    std::uint32_t offset;
  };
  constexpr Row rows[] = {
      {&clsSrv::ArmSpoiler, 0x0BCC}, {&clsSrv::TankSelector, 0x0AF8}, {&clsSrv::Crossfeed, 0x0AF8}};
  for (const auto& [set, offset] : rows) {
    expectValue(set, 15.F, {offset, {15}});
    expectValue(set, 1.9F, {offset, {1}});
    for (const float value : {-1.F, 256.F, NaN})
      expectOverflow(std::to_string(value), [&, set = set] { (srv().*set)(value); });
  }
}

TEST_F(ClsSrv, AutoRudderIsOneByte) {
  expectValue(&clsSrv::AutoRudder, 1, {0x0278, {1}});
  expectValue(&clsSrv::AutoRudder, 0, {0x0278, {0}});
  expectOverflow("256", [this] { srv().AutoRudder(256); });
  expectOverflow("-1", [this] { srv().AutoRudder(-1); });
}

}  // namespace
}  // namespace vorlent
