#include "check/BridgeCheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "base/RuntimeError.h"
#include "support/FakeSimulatorBus.h"

namespace vorlent {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

/// A simulator in level flight at 5000 feet.
class BridgeCheckTest : public testing::Test {
 protected:
  BridgeCheckTest() {
    bus.put(0x0574, std::int32_t{1524});       // metres
    bus.put(0x0578, std::int32_t{-35791394});  // nose up by 3 degrees
    bus.put(0x02BC, std::uint32_t{250 * 128});
    bus.put(0x0AEC, std::uint8_t{2});
    bus.put(0x0330, std::uint16_t{16212});
    bus.put(0x3B70, 1400.0);
    bus.put(0x3AB0, 1400.0);
    bus.put(0x30C0, 130000.0);
    bus.put(0x0BC0, std::int16_t{-1200});
    bus.put(0x088C, std::int16_t{16384});
  }
  bool check(const BridgeCheck::Settings& settings = {}) {
    const auto sleep = [this](int duration_ms) {
      now_ms += duration_ms;
      if (clockRuns) bus.put(0x023A, static_cast<std::uint8_t>(now_ms / 1000 % 60));
    };
    said.clear();
    OffsetLink link(bus, sleep);
    return BridgeCheck(link, settings, sleep, [this](std::string_view text) { said += text; })
        .run();
  }
  std::string refusal() {
    try {
      check();
    } catch (const RuntimeError& error) {
      return error.description();
    }
    return "";
  }
  /// The line that tells of an offset, four hexadecimal digits.
  std::string lineOf(const std::string& offset) const {
    const auto at = said.find("  " + offset + "  ");
    if (at == std::string::npos) return "";
    const auto begin = said.rfind('\n', at) + 1;
    return said.substr(begin, said.find('\n', at) - begin);
  }

  FakeSimulatorBus bus;
  int now_ms = 0;
  bool clockRuns = true;
  std::string said;
};

TEST_F(BridgeCheckTest, ASimulatorThatAnswersPasses) {
  EXPECT_TRUE(check());
  EXPECT_THAT(said, AllOf(HasSubstr("version 49500000, simulator 8\n"), Not(HasSubstr("WRONG")),
                          EndsWith("all 58 offsets are right\n")));
  EXPECT_EQ(lineOf("0574"),
            "ok     0574  altitude, upper half                  5000.00 ft      steady");
  EXPECT_EQ(lineOf("0578"),
            "ok     0578  pitch, nose up                           3.00 deg     steady");
  EXPECT_THAT(lineOf("023A"), EndsWith("moves"));
}

TEST_F(BridgeCheckTest, WhatIsWrittenIsPutBack) {
  const auto before = bus.offsets;
  clockRuns = false;
  check();
  EXPECT_EQ(bus.offsets, before);
  // A five-hundredth of 2 x 16383 is 65 and a bit.
  const auto writes = bus.writesTo(0x0BC0);
  ASSERT_THAT(writes, SizeIs(2));
  EXPECT_EQ(writes[0].bytes, (std::vector<std::uint8_t>{0x91, 0xFB}));  // -1135
  EXPECT_EQ(writes[1].bytes, (std::vector<std::uint8_t>{0x50, 0xFB}));  // -1200
}

TEST_F(BridgeCheckTest, AControlAtItsEndIsMovedTheOtherWay) {
  EXPECT_TRUE(check());
  const auto writes = bus.writesTo(0x088C);
  ASSERT_THAT(writes, SizeIs(2));
  EXPECT_EQ(writes[0].bytes, (std::vector<std::uint8_t>{0xBF, 0x3F}));  // 16384 - 65
}

TEST_F(BridgeCheckTest, ReadOnlyWritesNothing) {
  EXPECT_TRUE(check({false, 3}));
  EXPECT_THAT(bus.writes, IsEmpty());
  EXPECT_THAT(lineOf("0BC0"), EndsWith("steady"));
}

TEST_F(BridgeCheckTest, AValueOutOfItsRangeIsWrong) {
  bus.put(0x02BC, std::uint32_t{700 * 128});
  bus.put(0x30C0, std::nan(""));
  EXPECT_FALSE(check());
  EXPECT_THAT(lineOf("02BC"), AllOf(testing::StartsWith("WRONG"), HasSubstr("700.00 kt"),
                                    EndsWith("is out of range, 0 to 600")));
  EXPECT_THAT(lineOf("30C0"), HasSubstr("is out of range"));
  EXPECT_THAT(said, EndsWith("2 of 58 offsets are wrong\n"));
}

TEST_F(BridgeCheckTest, AClockThatStandsIsWrongUnlessTheSimulatorIsPaused) {
  clockRuns = false;
  EXPECT_FALSE(check());
  EXPECT_THAT(lineOf("023A"), EndsWith("does not move"));
  bus.put(0x0264, std::uint8_t{1});
  EXPECT_TRUE(check());
  EXPECT_THAT(said, HasSubstr("paused"));
}

TEST_F(BridgeCheckTest, AnOffsetThatIsRefusedIsWrong) {
  bus.onRequest = [](SendResult served, const std::byte* block) {
    if (load<std::uint32_t>(block + 4) == 0x02A0) served.reply = 0;
    return served;
  };
  EXPECT_FALSE(check());
  EXPECT_THAT(lineOf("02A0"), EndsWith("is not answered"));
  EXPECT_THAT(said, EndsWith("1 of 58 offsets are wrong\n"));
}

TEST_F(BridgeCheckTest, ABlockThatIsLeftAsItWasIsNoAnswer) {
  std::byte untouched{};
  bus.onRequest = [&untouched](SendResult served, std::byte* block) {
    if (load<std::uint32_t>(block) == 1 && load<std::uint32_t>(block + 4) == 0x0580)
      std::fill_n(block + 16, 4, untouched);
    return served;
  };
  bus.onArrival = [&untouched](const std::byte* block) { untouched = block[16]; };
  EXPECT_FALSE(check());
  EXPECT_THAT(lineOf("0580"), EndsWith("is not answered"));
  EXPECT_THAT(said, EndsWith("1 of 58 offsets are wrong\n"));
}

TEST_F(BridgeCheckTest, ARefusedPollIsWrong) {
  bus.onRequest = [](SendResult served, const std::byte* block) {
    // More than one record stands in the block.
    const auto size = load<std::uint32_t>(block + 8);
    if (load<std::uint32_t>(block) == 1 && load<std::uint32_t>(block + 16 + size) != 0)
      served.reply = 0;
    return served;
  };
  EXPECT_FALSE(check());
  EXPECT_THAT(said, HasSubstr("WRONG  the 111 reads of the server's poll in one request are "
                              "refused\n"));
}

TEST_F(BridgeCheckTest, AControlThatDoesNotTakeWhatIsWrittenIsWrong) {
  bus.onRequest = [this](SendResult served, const std::byte*) {
    bus.put(0x07BC, std::uint8_t{0});
    return served;
  };
  EXPECT_FALSE(check());
  EXPECT_THAT(lineOf("07BC"), EndsWith("does not take what is written"));
  EXPECT_THAT(said, EndsWith("1 of 58 offsets are wrong\n"));
}

TEST_F(BridgeCheckTest, ASimulatorMayTakeAWhileAndKeepAnotherPrecision) {
  bus.onRequest = [this](SendResult served, const std::byte*) {
    const auto written = bus.get<std::int16_t>(0x0BC0);
    bus.put(0x0BC0, static_cast<std::int16_t>(written / 10 * 10));
    return served;
  };
  EXPECT_TRUE(check());
}

TEST_F(BridgeCheckTest, ASimulatorThatIsNotReadyIsTold) {
  bus.put(0x3364, std::uint8_t{1});
  EXPECT_FALSE(check());
  EXPECT_THAT(said, EndsWith("3364 is not 0: the simulator is not ready, and the server would "
                             "wait\n"));
}

TEST_F(BridgeCheckTest, WithoutASimulatorItSaysWhatIsMissing) {
  bus.windows.clear();
  EXPECT_EQ(refusal(), "no simulator side listens as UIPCMAIN or FS98MAIN");
}

TEST_F(BridgeCheckTest, WhatKeepsAnySimulatorFromBeingFoundIsTold) {
  bus.windows.clear();
  bus.whyNoWindow = "The folder belongs to another user";
  EXPECT_EQ(refusal(), "The folder belongs to another user");
}

TEST_F(BridgeCheckTest, AnotherProgramBehindTheInterfaceIsTold) {
  bus.put(0x3308, std::uint32_t{0x12340008});
  EXPECT_EQ(refusal(), "offset 3308 is 12340008, and has to begin with FADE");
  bus.put(0x3304, std::uint32_t{0x19980004});
  EXPECT_EQ(refusal(), "offset 3304 is 19980004, and has to be at least 19980005");
}

TEST_F(BridgeCheckTest, ASimulatorThatStopsAnsweringEndsIt) {
  bus.unansweredRequests = 1;
  EXPECT_EQ(refusal(), "the simulator side does not answer a request within 2 seconds");
  EXPECT_EQ(bus.openBlocks, 0);
  EXPECT_EQ(bus.mappedViews, 0);
  EXPECT_THAT(bus.atoms, IsEmpty());
}

}  // namespace
}  // namespace vorlent
