#include "platform/SystemSoundOutput.h"

#include <gtest/gtest.h>

#include "support/eventually.h"

namespace vorlent {
namespace {

std::shared_ptr<const Wave> sound(int rate_Hz, std::size_t frames) {
  return std::make_shared<const Wave>(Wave{rate_Hz, std::vector<std::int16_t>(2 * frames, 100)});
}

class DirectSound : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_FALSE(output.devices().empty());
    ASSERT_TRUE(output.open(0, 0));
  }
  SystemSoundOutput output;
};

TEST(DirectSoundDevices, APositionBeyondTheListIsNotOpened) {
  SystemSoundOutput output;
  const auto names = output.devices();
  EXPECT_FALSE(output.open(names.size(), 0));
  EXPECT_EQ(output.voice(sound(22050, 10)), nullptr);
}

TEST_F(DirectSound, AVoiceTakesLevelsAndPlaysFromItsFrame) {
  const auto voice = output.voice(sound(22050, 22050));
  ASSERT_NE(voice, nullptr);
  voice->levels(-10000, -10000);
  voice->levels(0, 10000);
  voice->start(11025, true);
  EXPECT_TRUE(voice->playing());
  EXPECT_GE(voice->frame(), 11025U);
}

TEST_F(DirectSound, ASoundPlayedOnceEnds) {
  const auto voice = output.voice(sound(22050, 2205));
  ASSERT_NE(voice, nullptr);
  voice->start(0, false);
  EXPECT_TRUE(eventually([&] { return !voice->playing(); }));
}

TEST_F(DirectSound, VoicesOfOneWaveShareItsSamplesAndEachHasItsPlace) {
  const auto wave = sound(44100, 44100);
  const auto first = output.voice(wave);
  const auto second = output.voice(wave);
  ASSERT_NE(second, nullptr);
  first->start(0, true);
  EXPECT_TRUE(first->playing());
  EXPECT_FALSE(second->playing());
}

TEST_F(DirectSound, IsConnectedAndOpensAgain) {
  EXPECT_TRUE(output.connected());
  EXPECT_TRUE(output.openAgain());
  EXPECT_NE(output.voice(sound(22050, 10)), nullptr);
}

}  // namespace
}  // namespace vorlent
