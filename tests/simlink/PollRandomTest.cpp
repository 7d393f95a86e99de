#include <gtest/gtest.h>

#include "simlink/RandomMemory.h"

namespace vorlent {
namespace {

struct Setting {
  const char* name;
  const char* decimalMark;
  std::int16_t FsVersionCode;
};

class PollRandom : public testing::TestWithParam<Setting> {};

TEST_P(PollRandom, EveryTokenEqualsTheIndependentReading) {
  PolledServer sim(GetParam().decimalMark);
  sim.store.FsVersionCode = GetParam().FsVersionCode;
  IndependentRecord independent;
  independent.FsVersionCode = 8;
  independent.poll(sim.bus.offsets);
  for (unsigned sequence = 0; sequence < 40; ++sequence) {
    RandomMemory memory(sequence * 7919 + static_cast<unsigned>(GetParam().FsVersionCode));
    changeWhatIsNotPolled(sim.server, memory);
    sim.takeOver(independent);
    for (int poll = 0; poll < 12; ++poll) {
      memory.fill(sim.bus);
      ASSERT_EQ(sim.firstDifference(independent), "")
          << "sequence " << sequence << " poll " << poll;
    }
  }
}

TEST(PollRandomStore, EveryVariableOutsideTheRecordEqualsTheIndependentReading) {
  PolledServer sim;
  RandomMemory memory(20240229);
  IndependentRecord independent;
  independent.poll(sim.bus.offsets);
  for (int poll = 0; poll < 1500; ++poll) {
    memory.fill(sim.bus);
    sim.poll();
    independent.poll(sim.bus.offsets);
    ASSERT_NO_FATAL_FAILURE(compareOffRecord(sim.store, independent)) << "poll " << poll;
  }
}

INSTANTIATE_TEST_SUITE_P(All, PollRandom,
                         testing::Values(Setting{"PointFsx", ".", 8}, Setting{"CommaFsx", ",", 8},
                                         Setting{"PointFs2k", ".", 2}, Setting{"CommaCfs", ",", 5},
                                         Setting{"PointFs98", ".", 1}, Setting{"CommaAny", ",", 0},
                                         Setting{"PointFs2k2", ".", 6}),
                         [](const auto& setting) { return std::string(setting.param.name); });

}  // namespace
}  // namespace vorlent
