#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "support/PolledServer.h"

namespace vorlent {
namespace {

struct Read {
  std::uint32_t offset;
  std::uint32_t size;
  bool operator==(const Read&) const = default;
};

/// The read records of the next request.
std::vector<Read> readsOfOnePoll(PolledServer& sim) {
  std::vector<Read> reads;
  sim.bus.onRequest = [&reads](SendResult served, std::byte* block) {
    while (load<std::uint32_t>(block) == 1) {
      reads.push_back({load<std::uint32_t>(block + 4), load<std::uint32_t>(block + 8)});
      block += 16 + reads.back().size;
    }
    return served;
  };
  sim.poll();
  sim.bus.onRequest = nullptr;
  return reads;
}

TEST(Poll, OnePollIsOneRoundTrip) {
  PolledServer sim;
  const int before = sim.bus.requests;
  sim.poll();
  EXPECT_EQ(sim.bus.requests, before + 1);
}

TEST(Poll, ReadsTheLargeBlockInOneEntryAndEveryOtherOffsetByItself) {
  PolledServer sim;
  const auto reads = readsOfOnePoll(sim);
  EXPECT_EQ(reads.size(), 112U);
  for (const Read& expected :
       {Read{0x0238, 1}, Read{0x023C, 1}, Read{0x0264, 4352}, Read{0x08E8, 8},  Read{0x0AE0, 8},
        Read{0x2000, 8}, Read{0x2038, 8}, Read{0x2360, 8},    Read{0x2708, 8},  Read{0x3930, 8},
        Read{0x2EE8, 8}, Read{0x2EF0, 8}, Read{0x30C0, 8},    Read{0x0B18, 8},  Read{0x28B8, 8},
        Read{0x2EE0, 8}, Read{0x281C, 4}, Read{0x2EC8, 4},    Read{0x3BFA, 2},  Read{0x3BE7, 2},
        Read{0x0B71, 2}, Read{0x32F8, 2}, Read{0x3100, 37},   Read{0x3000, 96}, Read{0x07CC, 16}})
    EXPECT_EQ(std::count(reads.begin(), reads.end(), expected), 1) << std::hex << expected.offset;
}

TEST(Poll, OneFailedRoundTripReadsZeroAndTheNextOneReadsAgain) {
  PolledServer sim;
  sim.bus.put(0x02B8, std::uint32_t{32000});
  sim.bus.put(0x2028, 0.5);
  sim.poll();
  sim.bus.onRequest = [](SendResult, std::byte*) { return SendResult{true, 0, 0}; };
  sim.poll();
  EXPECT_EQ(sim.store.Tas, 0);
  EXPECT_EQ(sim.store.Engines(1).Torque, 0);
  EXPECT_EQ(sim.store.ApHeadingSim, 0);
  EXPECT_EQ(sim.fields()[13], "0");
  sim.bus.onRequest = nullptr;
  sim.poll();
  EXPECT_EQ(sim.store.Tas, 250);
  EXPECT_EQ(sim.fields()[13], "250");
  EXPECT_FALSE(sim.exitStatus());
}

TEST(Poll, TheSecondFailedRoundTripInARowEndsTheProcess) {
  PolledServer sim;
  sim.bus.onRequest = [](SendResult, std::byte*) { return SendResult{true, 0, 0}; };
  sim.server.failureDomain.run([&sim] { sim.poll(); });
  EXPECT_FALSE(sim.exitStatus());
  sim.server.failureDomain.run([&sim] { sim.poll(); });
  EXPECT_EQ(sim.exitStatus(), 1);
  EXPECT_NE(sim.log().find("FSUIPC Process error IPC request contains bad data"),
            std::string::npos);
}

TEST(Poll, TwoFailuresWithASuccessBetweenThemAreSurvived) {
  PolledServer sim;
  for (int round = 0; round < 3; ++round) {
    sim.bus.onRequest = [](SendResult, std::byte*) { return SendResult{true, 0, 0}; };
    sim.server.failureDomain.run([&sim] { sim.poll(); });
    sim.bus.onRequest = nullptr;
    sim.server.failureDomain.run([&sim] { sim.poll(); });
  }
  EXPECT_FALSE(sim.exitStatus());
}

TEST(Poll, RadioValuesAreRefreshedButForTheThreeOfTheCommands) {
  PolledServer sim;
  for (int element = 0; element <= 16; ++element) sim.store.RadioValues(element) = -7;
  sim.bus.put(0x02D4, std::uint16_t{0x0427});
  sim.bus.put(0x034C, std::uint16_t{0x0390});
  sim.bus.put(0x034E, std::uint16_t{0x2345});
  sim.bus.put(0x0350, std::uint16_t{0x1030});
  sim.bus.put(0x0352, std::uint16_t{0x1385});
  sim.bus.put(0x0354, std::uint16_t{0x1234});
  sim.bus.put(0x0C4E, std::uint16_t{90});
  sim.bus.put(0x0C5E, std::uint16_t{180});
  sim.bus.put(0x3118, std::uint16_t{0x1875});
  sim.bus.put(0x0378, std::uint16_t{5});
  sim.bus.put(0x311A, std::uint16_t{0x2190});
  sim.bus.put(0x311C, std::uint16_t{0x2500});
  sim.bus.put(0x311E, std::uint16_t{0x0990});
  sim.bus.put(0x3120, std::uint16_t{0x1705});
  sim.poll();
  constexpr float Expected[] = {427, 123.45F, 110.3F, 113.85F, 390, 1234,   90,     180, 118.75F, 5,
                                -7,  -7,      -7,     121.9F,  125, 109.9F, 117.05F};
  for (int element = 0; element <= 16; ++element)
    EXPECT_EQ(sim.store.RadioValues(element), Expected[element]) << element;
}

TEST(Poll, StateValuesAreRefreshedButForTheThreeOfTheCommands) {
  PolledServer sim;
  for (int element = 1; element <= 21; ++element) sim.store.StateValues(element) = -7;
  sim.bus.put(0x0BDC, std::uint16_t{8191});
  sim.bus.put(0x0BD0, std::uint16_t{4800});
  sim.bus.put(0x0888, std::uint16_t{0x0003});
  sim.bus.put(0x092A, std::uint8_t{2});
  sim.bus.put(0x094A, std::uint8_t{1});
  sim.bus.put(0x028C, std::uint8_t{3});
  sim.bus.put(0x0281, std::uint8_t{4});
  sim.bus.put(0x0BE8, std::uint16_t{16383});
  sim.bus.put(0x0AF8, std::uint8_t{6});
  sim.bus.put(0x0BC8, std::uint16_t{32767});
  sim.bus.put(0x029C, std::uint8_t{8});
  sim.bus.put(0x11D0, std::uint16_t{2560});
  sim.bus.put(0x0BC0, std::uint16_t{65535});
  sim.bus.put(0x0330, std::uint16_t{16212});
  sim.bus.put(0x0EC6, std::uint16_t{15800});
  sim.bus.put(0x0280, std::uint8_t{9});
  sim.bus.put(0x0E8C, std::uint16_t{3840});
  sim.poll();
  constexpr float Expected[] = {8191, 4800, 2,        2,      3,  4, 16383, 6,       1,  8, 1,
                                10,   -1,   1013.25F, 987.5F, -7, 9, 15,    0.0002F, -7, -7};
  for (int element = 1; element <= 21; ++element)
    EXPECT_EQ(sim.store.StateValues(element), Expected[element - 1]) << element;
}

TEST(Poll, WithNoEngineBurningStarterAndAntiIceOfTheStateAreKept) {
  PolledServer sim;
  sim.bus.put(0x0888, std::uint8_t{1});
  sim.bus.put(0x0892, std::uint8_t{2});
  sim.bus.put(0x08B2, std::uint8_t{1});
  sim.poll();
  EXPECT_EQ(sim.store.StateValues(3), 2);
  EXPECT_EQ(sim.store.StateValues(11), 1);
  sim.bus.put(0x0888, std::uint8_t{0xF0});
  sim.bus.put(0x0892, std::uint8_t{3});
  sim.bus.put(0x08B2, std::uint8_t{0});
  sim.poll();
  EXPECT_EQ(sim.store.StateValues(3), 2);
  EXPECT_EQ(sim.store.StateValues(4), 0);
  EXPECT_EQ(sim.store.StateValues(11), 1);
}

TEST(Poll, BurningEnginesAreCountedNotNumbered) {
  PolledServer sim;
  for (const auto& [bits, count] : std::map<int, float>{{1, 1}, {8, 1}, {5, 2}, {14, 3}, {15, 4}}) {
    sim.bus.put(0x0888, static_cast<std::uint8_t>(bits));
    sim.poll();
    EXPECT_EQ(sim.store.StateValues(4), count) << bits;
  }
}

TEST(Poll, ApValuesAreTheSimulatorsAutopilotInTheirOrder) {
  PolledServer sim;
  constexpr std::uint32_t Offsets[] = {0x07DC, 0x07D0, 0x07FC, 0x07D8, 0x0804, 0x07C8, 0x0800,
                                       0x07E4, 0x07BC, 0x07C4, 0x07C0, 0x0810, 0x080C, 0,
                                       0,      0,      0x07E2, 0x07F2, 0x0808};
  for (int element = 1; element <= 19; ++element)
    if (Offsets[element - 1] != 0)
      sim.bus.put(Offsets[element - 1], static_cast<std::uint16_t>(element));
  sim.server.fsuipc->Factor_APHeading(100);
  sim.bus.put(0x07D4, std::uint32_t{199753720});
  sim.bus.put(0x07CC, std::uint16_t{9000});
  sim.bus.put(0x07E8, std::uint16_t{32750});
  sim.poll();
  for (int element = 1; element <= 19; ++element)
    if (Offsets[element - 1] != 0) {
      EXPECT_EQ(sim.store.ApValues(element), static_cast<float>(element));
    }
  EXPECT_EQ(sim.store.ApValues(14), 10000);
  EXPECT_EQ(sim.store.ApValues(15), 90);
  EXPECT_EQ(sim.store.ApValues(16), 0.5F);
}

TEST(Poll, TheFlightDirectorIsLeftToTheAutoflight) {
  PolledServer sim;
  sim.store.FdActive = 1;
  sim.store.FdPitch = 2.5F;
  sim.store.FdBank = -10;
  sim.bus.offsets.assign(sim.bus.offsets.size(), 0x11);
  sim.poll();
  EXPECT_EQ(sim.store.FdActive, 1);
  EXPECT_EQ(sim.store.FdPitch, 2.5F);
  EXPECT_EQ(sim.store.FdBank, -10);
}

}  // namespace
}  // namespace vorlent
