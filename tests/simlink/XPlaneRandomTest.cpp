#include <gtest/gtest.h>

#include "simlink/RandomMemory.h"
#include "support/IndependentXPlane.h"
#include "support/XPlaneServer.h"

namespace vorlent {
namespace {

struct StoreSetting {
  const char* name;
  const char* decimalMark;
  std::int16_t FsVersionCode;
};

class XPlaneRandom : public testing::TestWithParam<StoreSetting> {
 protected:
  XPlaneRandom() {
    sim.store.FsVersionCode = GetParam().FsVersionCode;
    independent.FsVersionCode = 8;
    setClock({12, 34, 56});
    independent.poll(startOffsets);
  }

  void setClock(const LocalTime& now) {
    sim.loop.timeOfDay = now;
    independent.hour = now.hour;
    independent.minute = now.minute;
    independent.second = now.second;
  }

  XPlaneServer sim{GetParam().decimalMark};
  std::vector<std::uint8_t> startOffsets = sim.bus.offsets;
  IndependentXPlane independent;
};

TEST_P(XPlaneRandom, EveryTokenEqualsTheIndependentReading) {
  for (unsigned sequence = 0; sequence < 15; ++sequence) {
    RandomMemory memory(sequence * 7907 + static_cast<unsigned>(GetParam().FsVersionCode));
    changeWhatIsNotPolled(sim.server, memory);
    sim.takeOver(independent);
    for (int poll = 0; poll < 12; ++poll) {
      memory.fill(sim.bus);
      setClock({static_cast<int>(memory.below(24)), static_cast<int>(memory.below(60)),
                static_cast<int>(memory.below(60))});
      ASSERT_EQ(sim.firstDifference(independent), "")
          << "sequence " << sequence << " poll " << poll;
    }
  }
}

TEST_P(XPlaneRandom, EveryVariableOutsideTheRecordEqualsTheIndependentReading) {
  RandomMemory memory(20260711);
  sim.takeOver(independent);
  for (int poll = 0; poll < 150; ++poll) {
    memory.fill(sim.bus);
    sim.poll();
    independent.poll(sim.bus.offsets);
    ASSERT_NO_FATAL_FAILURE(compareOffRecord(sim.store, independent)) << "poll " << poll;
  }
}

/// Every byte of the offsets alike: the ends of every width.
TEST_P(XPlaneRandom, EveryTokenEqualsTheIndependentReadingAtTheEdges) {
  sim.takeOver(independent);
  for (const int byte : {0x00, 0x01, 0x7F, 0x80, 0x99, 0xFE, 0xFF, 0x20, 0x40}) {
    std::fill(sim.bus.offsets.begin(), sim.bus.offsets.end(), static_cast<std::uint8_t>(byte));
    for (int engines = 0; engines <= 4; ++engines) {
      sim.bus.put(0x0AEC, static_cast<std::uint8_t>(engines));
      ASSERT_EQ(sim.firstDifference(independent), "") << "byte " << byte;
      ASSERT_NO_FATAL_FAILURE(compareOffRecord(sim.store, independent)) << "byte " << byte;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, XPlaneRandom,
    testing::Values(StoreSetting{"PointFsx", ".", 8}, StoreSetting{"CommaFsx", ",", 8},
                    StoreSetting{"PointFs2k", ".", 2}, StoreSetting{"CommaCfs", ",", 5},
                    StoreSetting{"PointFs98", ".", 1}, StoreSetting{"CommaAny", ",", 0},
                    StoreSetting{"PointFs2k2", ".", 6}),
    [](const auto& setting) { return std::string(setting.param.name); });

}  // namespace
}  // namespace vorlent
