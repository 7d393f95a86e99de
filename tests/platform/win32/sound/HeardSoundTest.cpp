#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "extras/clsSound.h"
#include "platform/SoundDevice.h"
#include "platform/SystemSoundOutput.h"
#include "support/Loudspeaker.h"

namespace vorlent {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;
using Moment = Loudspeaker::Moment;

constexpr int Rate_Hz = 22050;
constexpr int Loudest = 32000;
const double ToneLevel_dB = 20 * std::log10(Loudest / 32768.0 / std::numbers::sqrt2);

/// A second of a tone that fits into its loop, equally loud on both channels.
Wave tone() {
  Wave wave{Rate_Hz, {}};
  for (int i = 0; i < Rate_Hz; ++i) {
    const double sample = Loudest * std::sin(2 * std::numbers::pi * 441 * i / Rate_Hz);
    wave.samples.insert(wave.samples.end(), 2, static_cast<std::int16_t>(std::lround(sample)));
  }
  return wave;
}

struct Levels {
  double left_dB;
  double right_dB;
};

/// By the formulas, against what the tone itself has.
Levels expected(int volume, int pan) {
  const double level_dB = ToneLevel_dB + 20 * std::log10(volume / 100.0);
  const double weaker_dB = pan == 50 ? 0 : 8 * std::log10(20 * std::abs(pan - 50));
  return {level_dB - (pan > 50 ? weaker_dB : 0), level_dB - (pan < 50 ? weaker_dB : 0)};
}

double distance_dB(const Levels& a, const Levels& b) {
  return std::max(std::abs(a.left_dB - b.left_dB), std::abs(a.right_dB - b.right_dB));
}

/// DirectSound's own output, as the loudspeaker gets it.
class HeardSound : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_FALSE(output.devices().empty());
    ASSERT_TRUE(output.open(0, 0));
    play(tone());
  }
  /// Silent, in a loop.
  void play(const Wave& wave) {
    voice = output.voice(std::make_shared<const Wave>(wave));
    ASSERT_NE(voice, nullptr);
    voice->levels(SoundBuffer::QuietestVolume, 0);
    voice->start(0, true);
  }
  void levels(int volume, int pan) {
    voice->levels(deviceVolume(static_cast<float>(volume)), devicePan(static_cast<float>(pan)));
  }
  /// What is heard when a change of now has come through.
  Levels settled() {
    const Moment from = steady_clock::now() + 300ms;
    const Moment until = from + 100ms;
    const HeardSamples& heard = loudspeaker.heardUntil(until);
    return {heard.level_dB(0, from, until), heard.level_dB(1, from, until)};
  }
  /// Where Wine's driver ran dry just then, it is listened to again.
  void expectLevels(const Levels& expected) {
    constexpr double Tolerance_dB = 0.5;
    Levels heard = settled();
    for (int again = 0; again < 2 && distance_dB(heard, expected) > Tolerance_dB; ++again)
      heard = settled();
    worst_dB = std::max(worst_dB, distance_dB(heard, expected));
    EXPECT_NEAR(heard.left_dB, expected.left_dB, Tolerance_dB);
    EXPECT_NEAR(heard.right_dB, expected.right_dB, Tolerance_dB);
  }

  double worst_dB = 0;
  Loudspeaker loudspeaker;
  SystemSoundOutput output;
  std::unique_ptr<SoundVoice> voice;
};

/// Wine halves at 6.00 dB in place of 6.02, which makes 0.22 dB at the quietest of these, -64 dB,
/// and takes a gain in steps of 1/65536, which makes up to 0.2 dB more there.
TEST_F(HeardSound, EveryVolumeAndEveryPanAreHeardWithinHalfADecibel) {
  for (int step = 0; step <= 100; ++step) {
    const int volume = std::max(1, step);
    const int pan = step * 37 % 101;  // each once
    levels(volume, pan);
    SCOPED_TRACE("volume " + std::to_string(volume) + ", pan " + std::to_string(pan));
    expectLevels(expected(volume, pan));
  }
  RecordProperty("worst_dB", std::to_string(worst_dB));
}

TEST_F(HeardSound, VolumeZeroIsSilent) {
  levels(0, 50);
  EXPECT_LT(settled().left_dB, -90);
}

TEST_F(HeardSound, TheChannelsStayApart) {
  Wave left = tone();
  for (std::size_t i = 1; i < left.samples.size(); i += 2) left.samples[i] = 0;
  play(left);
  levels(100, 50);
  const Levels heard = settled();
  EXPECT_NEAR(heard.left_dB, ToneLevel_dB, 0.5);
  EXPECT_LT(heard.right_dB, -90);
}

TEST_F(HeardSound, AVoiceThatGoesFallsSilent) {
  levels(100, 50);
  expectLevels({ToneLevel_dB, ToneLevel_dB});
  voice.reset();
  EXPECT_LT(settled().left_dB, -90);
}

TEST_F(HeardSound, ItBeginsAtItsTime) {
  const Moment silent = steady_clock::now();
  loudspeaker.heardUntil(silent + 300ms);
  const Moment start = steady_clock::now();
  levels(100, 50);
  const auto first = loudspeaker.heardUntil(start + 500ms).firstAbove(0.02, silent);
  ASSERT_TRUE(first);
  const double late_ms = std::chrono::duration<double, std::milli>(*first - start).count();
  RecordProperty("late_ms", std::to_string(late_ms));
  EXPECT_GT(late_ms, -100);
  EXPECT_LT(late_ms, 100);
}

/// Where Wine's driver ran dry, the minute begins again; a gap of the loop's own would come each
/// second.
TEST_F(HeardSound, AMinuteOfTheLoopHasNoGap) {
  constexpr auto Part = 10ms;
  levels(100, 50);
  const Moment begin = steady_clock::now() + 300ms;
  Moment since = begin;
  for (Moment at = begin; at < since + 60s; at += Part) {
    ASSERT_LT(at, begin + 5min);
    const HeardSamples& heard = loudspeaker.heardUntil(at + Part);
    const Levels part{heard.level_dB(0, at, at + Part), heard.level_dB(1, at, at + Part)};
    if (distance_dB(part, {ToneLevel_dB, ToneLevel_dB}) > 0.2) since = at + Part;
  }
}

}  // namespace
}  // namespace vorlent
