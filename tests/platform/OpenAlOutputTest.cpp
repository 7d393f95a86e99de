#include "platform/linux/OpenAlOutput.h"

#include <AL/alext.h>
#include <gtest/gtest.h>

#include <cmath>

#include "extras/clsSound.h"
#include "support/places.h"

namespace vorlent {
namespace {

constexpr int Rate_Hz = 22050;

/// The sound library, rendering into memory in place of a loudspeaker.
struct RenderedLibrary : public SystemSoundOutput::Library {
  explicit RenderedLibrary(int rate_Hz)
      : attributes{ALC_FORMAT_CHANNELS_SOFT,
                   ALC_STEREO_SOFT,
                   ALC_FORMAT_TYPE_SOFT,
                   ALC_FLOAT_SOFT,
                   ALC_FREQUENCY,
                   rate_Hz,
                   0} {}

  /// Left and right in turn.
  std::vector<float> render(std::size_t frames) const {
    std::vector<float> samples(2 * frames);
    function<LPALCRENDERSAMPLESSOFT>("alcRenderSamplesSOFT")(device, samples.data(),
                                                             static_cast<ALCsizei>(frames));
    return samples;
  }
  ALCdevice* openDevice(const std::string& /*wanted*/) override {
    return function<LPALCLOOPBACKOPENDEVICESOFT>("alcLoopbackOpenDeviceSOFT")(nullptr);
  }
  const ALCint* contextAttributes() const override { return attributes.data(); }

  template <class Function>
  static Function function(const char* entry) {
    return reinterpret_cast<Function>(alcGetProcAddress(nullptr, entry));
  }

  std::array<ALCint, 7> attributes;
};

class RenderedOutput : public SystemSoundOutput {
 public:
  explicit RenderedOutput(int rate_Hz) : RenderedOutput(new RenderedLibrary(rate_Hz)) {}

  std::vector<float> render(std::size_t frames) const { return library_.render(frames); }

 private:
  explicit RenderedOutput(RenderedLibrary* library)
      : SystemSoundOutput(std::unique_ptr<Library>(library)), library_(*library) {
    EXPECT_TRUE(openAgain());
  }

  const RenderedLibrary& library_;
};

/// A tone that fits into its loop, equally loud on both channels.
std::shared_ptr<const Wave> tone(double seconds = 1) {
  Wave wave{Rate_Hz, {}};
  for (int i = 0; i < seconds * Rate_Hz; ++i) {
    const double sample = 16000 * std::sin(2 * M_PI * 441 * i / Rate_Hz);
    wave.samples.insert(wave.samples.end(), 2, static_cast<std::int16_t>(std::lround(sample)));
  }
  return std::make_shared<const Wave>(wave);
}

/// Mean level of a channel, dB against full scale.
double level_dB(const std::vector<float>& samples, std::size_t channel, std::size_t from = 0,
                std::size_t until = SIZE_MAX) {
  double sum = 0;
  std::size_t count = 0;
  for (std::size_t frame = from; frame < std::min(until, samples.size() / 2); ++frame, ++count)
    sum += double{samples[2 * frame + channel]} * samples[2 * frame + channel];
  return 10 * std::log10(sum / static_cast<double>(count) + 1e-30);
}

const double ToneLevel_dB = 20 * std::log10(16000 / 32768.0 / std::sqrt(2));

class RenderedSound : public ::testing::Test {
 protected:
  /// Behind the moment in which the gains settle.
  std::vector<float> settled() {
    output.render(Rate_Hz / 10);
    return output.render(Rate_Hz / 5);
  }

  RenderedOutput output{Rate_Hz};
  std::unique_ptr<SoundVoice> voice = output.voice(tone());
};

TEST_F(RenderedSound, EveryVolumeIsHeardWithinHalfADecibel) {
  voice->levels(-10000, 0);
  voice->start(0, true);
  for (int volume = 1; volume <= 100; ++volume) {
    voice->levels(deviceVolume(static_cast<float>(volume)), 0);
    const auto heard = settled();
    const double expected_dB = ToneLevel_dB + 20 * std::log10(volume / 100.0);
    EXPECT_NEAR(level_dB(heard, 0), expected_dB, 0.5) << volume;
    EXPECT_NEAR(level_dB(heard, 1), expected_dB, 0.5) << volume;
  }
}

TEST_F(RenderedSound, TheDevicesWholeRangeIsHeardWithinHalfADecibel) {
  voice->start(0, true);
  for (int volume = 0; volume > -10000; volume -= 370) {
    voice->levels(volume, 0);
    EXPECT_NEAR(level_dB(settled(), 0), ToneLevel_dB + volume / 100.0, 0.5) << volume;
  }
}

TEST_F(RenderedSound, VolumeZeroIsSilent) {
  voice->levels(deviceVolume(0), 0);
  voice->start(0, true);
  EXPECT_LT(level_dB(settled(), 0), -120);
}

TEST_F(RenderedSound, APanAboveFiftyWeakensTheLeftAndBelowFiftyTheRight) {
  voice->start(0, true);
  for (int pan = 0; pan <= 100; ++pan) {
    voice->levels(0, devicePan(static_cast<float>(pan)));
    const auto heard = settled();
    const double aside = std::abs(pan - 50) * 20;
    const double weaker_dB = pan == 50 ? 0 : 8 * std::log10(aside);
    EXPECT_NEAR(level_dB(heard, 0), ToneLevel_dB - (pan > 50 ? weaker_dB : 0), 0.5) << pan;
    EXPECT_NEAR(level_dB(heard, 1), ToneLevel_dB - (pan < 50 ? weaker_dB : 0), 0.5) << pan;
  }
}

TEST_F(RenderedSound, VolumeAndPanAddUp) {
  voice->levels(-603, 2222);
  voice->start(0, true);
  const auto heard = settled();
  EXPECT_NEAR(level_dB(heard, 0), ToneLevel_dB - 28.25, 0.5);
  EXPECT_NEAR(level_dB(heard, 1), ToneLevel_dB - 6.03, 0.5);
}

TEST_F(RenderedSound, TheChannelsStayApart) {
  Wave left{Rate_Hz, {}};
  const auto both = tone();
  for (const std::int16_t sample : both->samples)
    left.samples.push_back(left.samples.size() % 2 == 0 ? sample : std::int16_t{0});
  voice = output.voice(std::make_shared<const Wave>(left));
  voice->start(0, true);
  const auto heard = settled();
  EXPECT_NEAR(level_dB(heard, 0), ToneLevel_dB, 0.5);
  EXPECT_LT(level_dB(heard, 1), -120);
}

TEST_F(RenderedSound, ASoundPlayedOnceEndsAndStaysSilent) {
  voice = output.voice(tone(0.5));
  voice->start(0, false);
  EXPECT_TRUE(voice->playing());
  EXPECT_GT(level_dB(output.render(Rate_Hz * 4 / 10), 0), ToneLevel_dB - 1);
  output.render(Rate_Hz);
  EXPECT_FALSE(voice->playing());
  EXPECT_LT(level_dB(output.render(Rate_Hz), 0), -120);
}

TEST_F(RenderedSound, ItBeginsAtItsFrame) {
  voice = output.voice(tone(0.5));
  voice->start(Rate_Hz * 4 / 10, false);
  EXPECT_GE(voice->frame(), static_cast<std::size_t>(Rate_Hz * 4 / 10));
  output.render(Rate_Hz * 2 / 10);
  EXPECT_FALSE(voice->playing());
}

TEST_F(RenderedSound, AVoiceThatGoesFallsSilent) {
  voice->start(0, true);
  output.render(Rate_Hz);
  voice.reset();
  output.render(Rate_Hz / 10);
  EXPECT_LT(level_dB(output.render(Rate_Hz), 0), -120);
}

TEST_F(RenderedSound, TenMinutesOfALoopHaveNoGap) {
  voice->start(0, true);
  output.render(Rate_Hz / 10);
  constexpr std::size_t Part = Rate_Hz / 100;  // ten milliseconds
  for (int second = 0; second < 600; ++second) {
    const auto heard = output.render(Rate_Hz);
    for (std::size_t at = 0; at + Part <= Rate_Hz; at += Part)
      for (std::size_t channel = 0; channel < 2; ++channel)
        ASSERT_NEAR(level_dB(heard, channel, at, at + Part), ToneLevel_dB, 0.2)
            << second << " s, frame " << at;
  }
}

TEST(RenderedAtAnotherRate, ALoopHasNoSeam) {
  constexpr int OtherRate_Hz = 48000;
  RenderedOutput output(OtherRate_Hz);
  const auto voice = output.voice(tone());
  voice->start(0, true);
  output.render(OtherRate_Hz / 10);
  const auto heard = output.render(OtherRate_Hz * 5);
  constexpr std::size_t Part = OtherRate_Hz / 100;
  for (std::size_t at = 0; at + Part <= heard.size() / 2; at += Part)
    ASSERT_NEAR(level_dB(heard, 0, at, at + Part), ToneLevel_dB, 0.3) << at;
}

TEST(SoundLibrary, GivesItsSourcesBack) {
  RenderedOutput output(Rate_Hz);
  const auto wave = tone(0.1);
  for (int i = 0; i < 2000; ++i) {
    const auto voice = output.voice(wave);
    ASSERT_NE(voice, nullptr) << i;
    voice->start(0, true);
  }
}

TEST(SoundLibrary, BeyondItsSourcesThereIsNoVoice) {
  RenderedOutput output(Rate_Hz);
  std::vector<std::unique_ptr<SoundVoice>> voices;
  while (voices.size() < 10000 && (voices.empty() || voices.back()))
    voices.push_back(output.voice(tone(0.01)));
  EXPECT_EQ(voices.back(), nullptr);
  EXPECT_GE(voices.size(), 100U);
}

TEST(SoundLibrary, ADeviceThatIsNotThereIsNotOpened) {
  SystemSoundOutput output;
  const auto names = output.devices();
  EXPECT_FALSE(output.open(names.size(), 0));
  EXPECT_EQ(output.voice(tone(0.01)), nullptr);
}

}  // namespace
}  // namespace vorlent
