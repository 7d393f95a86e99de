#include "platform/Wave.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <filesystem>

#include "base/RuntimeError.h"
#include "platform/waveFile.h"
#include "support/TempFolder.h"
#include "support/places.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::string complaintAbout(const std::string& bytes) {
  try {
    waveFrom(bytes);
    return "none";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 5);
    return error.description();
  }
}

std::string floats(std::initializer_list<float> values) {
  std::string bytes;
  for (const float value : values) bytes += littleEndian(std::bit_cast<std::uint32_t>(value), 4);
  return bytes;
}

TEST(Wave, SixteenBitsInStereoAreTakenAsTheyAre) {
  const Wave wave = waveFrom(waveFile({1, -2, 32767, -32768}));
  EXPECT_EQ(wave.rate_Hz, 22050);
  EXPECT_EQ(wave.frames(), 2U);
  EXPECT_THAT(wave.samples, ElementsAre(1, -2, 32767, -32768));
}

TEST(Wave, MonoIsOnBothChannels) {
  const Wave wave = waveFrom(waveFile({1, 1, 44100, 16}, "\x34\x12\xFF\xFF"));
  EXPECT_EQ(wave.rate_Hz, 44100);
  EXPECT_THAT(wave.samples, ElementsAre(0x1234, 0x1234, -1, -1));
}

TEST(Wave, EightBitsCountFromTheMiddle) {
  const Wave wave = waveFrom(waveFile({1, 2, 8000, 8}, std::string("\x00\x80\xFF\x81", 4)));
  EXPECT_THAT(wave.samples, ElementsAre(-32768, 0, 32512, 256));
}

TEST(Wave, OfTwentyFourAndThirtyTwoBitsTheUpperSixteenAreHeard) {
  EXPECT_THAT(waveFrom(waveFile({1, 1, 22050, 24}, "\x99\x34\x12")).samples,
              ElementsAre(0x1234, 0x1234));
  EXPECT_THAT(waveFrom(waveFile({1, 1, 22050, 32}, "\x99\x99\xFE\xFF")).samples,
              ElementsAre(-2, -2));
}

TEST(Wave, FloatsBeyondFullScaleAreCut) {
  EXPECT_THAT(waveFrom(waveFile({3, 2, 48000, 32}, floats({0.5F, -1.0F, 2.0F, -7.0F}))).samples,
              ElementsAre(16384, -32768, 32767, -32768));
}

TEST(Wave, AFloatThatIsNoNumberIsSilent) {
  EXPECT_THAT(waveFrom(waveFile({3, 1, 48000, 32}, floats({std::nanf("")}))).samples,
              ElementsAre(0, 0));
}

TEST(Wave, OtherPartsArePassedOver) {
  const std::string file = riff(chunk("LIST", "odd") + formatChunk({}) + chunk("fact", "abcd") +
                                chunk("data", "\x01\x02\x03\x04") + "tail");
  EXPECT_THAT(waveFrom(file).samples, ElementsAre(0x0201, 0x0403));
}

TEST(Wave, TheExtensibleFormatTellsItsTrueCoding) {
  const std::string common = littleEndian(0xFFFE, 2) + littleEndian(2, 2) + littleEndian(22050, 4) +
                             littleEndian(88200, 4) + littleEndian(4, 2) + littleEndian(16, 2) +
                             littleEndian(22, 2) + littleEndian(16, 2) + littleEndian(3, 4);
  const std::string data = chunk("data", "\x01\x02\x03\x04");
  EXPECT_EQ(waveFrom(riff(chunk("fmt ", common + littleEndian(1, 2) + std::string(14, 'g')) + data))
                .frames(),
            1U);
  EXPECT_THAT(complaintAbout(riff(chunk("fmt ", common) + data)), HasSubstr("format is cut"));
}

TEST(Wave, HalfAFrameAtTheEndIsDropped) {
  EXPECT_EQ(waveFrom(waveFile({}, "abcdef")).frames(), 1U);
}

TEST(Wave, WhatIsNoWaveFileIsRefused) {
  EXPECT_THAT(complaintAbout(""), HasSubstr("no wave file"));
  EXPECT_THAT(complaintAbout("RIFF"), HasSubstr("no wave file"));
  EXPECT_THAT(complaintAbout("OggS and more of the same"), HasSubstr("no wave file"));
  EXPECT_THAT(complaintAbout(chunk("RIFF", "AVI and more")), HasSubstr("no wave file"));
}

TEST(Wave, ACutFileIsRefusedAtEveryLength) {
  const std::string whole = waveFile({1, 2, 3, 4});
  for (std::size_t length = 0; length < whole.size(); ++length)
    EXPECT_NE(complaintAbout(whole.substr(0, length)), "none") << length;
}

TEST(Wave, ALengthThatLiesIsTold) {
  std::string file = waveFile({1, 2});
  file.replace(40, 4, littleEndian(0xFFFFFFFF, 4));
  EXPECT_EQ(complaintAbout(file), "it is cut: a part of 4294967295 bytes has 4");
}

TEST(Wave, AnEmptySoundIsRefused) {
  EXPECT_THAT(complaintAbout(waveFile({}, "")), HasSubstr("holds no sound"));
  EXPECT_THAT(complaintAbout(waveFile({}, "abc")), HasSubstr("holds no sound"));
  EXPECT_THAT(complaintAbout(riff(formatChunk({}))), HasSubstr("has no data"));
  EXPECT_THAT(complaintAbout(riff(chunk("data", "abcd"))), HasSubstr("no format"));
}

TEST(Wave, OtherCodingsAreRefusedWithTheirNumber) {
  EXPECT_THAT(complaintAbout(waveFile({2, 2, 22050, 4}, "abcd")), HasSubstr("coding 2"));
  EXPECT_THAT(complaintAbout(waveFile({1, 2, 22050, 12}, "abcd")), HasSubstr("12 bits"));
  EXPECT_THAT(complaintAbout(waveFile({3, 2, 22050, 64}, "abcd")), HasSubstr("64 bits"));
  EXPECT_THAT(complaintAbout(waveFile({1, 0, 22050, 16}, "abcd")), HasSubstr("0 channels"));
  EXPECT_THAT(complaintAbout(waveFile({1, 6, 22050, 16}, "abcd")), HasSubstr("6 channels"));
  EXPECT_THAT(complaintAbout(waveFile({1, 2, 0, 16}, "abcd")), HasSubstr("0 Hz"));
  EXPECT_THAT(complaintAbout(waveFile({1, 2, 4000000000, 16}, "abcd")), HasSubstr("Hz"));
}

class WaveOnDisk : public ::testing::Test {
 protected:
  int faultOf(const std::string& name) {
    return raisedBy([&] { readWave(folder / name); });
  }
  TempFolder folder;
};

TEST_F(WaveOnDisk, AMissingFileAFolderAndAnEmptyFileAreFaultsOfTheirOwn) {
  std::filesystem::create_directory(folder / "folder.wav");
  folder.write("empty.wav", "");
  EXPECT_EQ(faultOf("gone.wav"), 53);
  EXPECT_EQ(faultOf("folder.wav"), 75);
  EXPECT_EQ(faultOf("empty.wav"), 5);
}

TEST_F(WaveOnDisk, AGigabyteIsNotRead) {
  folder.write("huge.wav", waveFile({1, 2}));
  std::filesystem::resize_file(folder / "huge.wav", std::uintmax_t{1} << 30U);
  try {
    readWave(folder / "huge.wav");
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 75);
    EXPECT_EQ(error.description(), "Sound " + folder / "huge.wav" + ": it is larger than 64 MB");
  }
}

TEST(ShippedSounds, AreThereForCockpitAndTemplateInTheDevicesFormat) {
  for (const std::string kind : {"Cockpits", "Templates"})
    for (const std::string name : {"rumble", "bump", "tyres", "start"}) {
      const Wave wave = readWave(dataFolder() + "/" + kind + "/737-700/sound/" + name + ".wav");
      EXPECT_EQ(wave.rate_Hz, 22050) << name;
      EXPECT_GT(wave.frames(), 22050U / 2) << name;
    }
}

/// The step from the end to the start is no larger than the largest within.
TEST(ShippedSounds, LoopWithoutAClick) {
  for (const std::string name : {"rumble", "start"}) {
    const Wave wave = readWave(dataFolder() + "/Cockpits/737-700/sound/" + name + ".wav");
    for (std::size_t channel = 0; channel < 2; ++channel) {
      const auto at = [&](std::size_t frame) { return wave.samples[2 * frame + channel]; };
      int largest = 0;
      for (std::size_t frame = 1; frame < wave.frames(); ++frame)
        largest = std::max(largest, std::abs(at(frame) - at(frame - 1)));
      EXPECT_LE(std::abs(at(0) - at(wave.frames() - 1)), largest) << name << channel;
    }
  }
}

}  // namespace
}  // namespace vorlent
