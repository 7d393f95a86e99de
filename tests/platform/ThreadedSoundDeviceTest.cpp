#include "platform/ThreadedSoundDevice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>

#include "platform/waveFile.h"
#include "support/TempFolder.h"
#include "support/eventually.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

using namespace std::chrono_literals;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

/// A sound library that remembers what it was asked, and hangs where the test wants it to. Shared
/// by the test and the thread.
struct Library {
  void note(const std::string& what) {
    std::unique_lock lock(mutex);
    calls.push_back(what);
    changed.wait(lock, [&] { return what != hangsIn; });
  }
  std::vector<std::string> seen() {
    const std::lock_guard lock(mutex);
    return calls;
  }
  bool sees(const std::string& what) {
    return eventually([&] {
      const auto all = seen();
      return std::find(all.begin(), all.end(), what) != all.end();
    });
  }
  void hang(const std::string& in) {
    const std::lock_guard lock(mutex);
    hangsIn = in;
    changed.notify_all();
  }

  std::mutex mutex;
  std::condition_variable changed;
  std::vector<std::string> calls;
  std::string hangsIn;
  std::atomic<bool> opens{true};
  std::atomic<bool> connected{true};
  std::atomic<bool> ends{false};  ///< what plays has come to its end
};

class LibraryVoice : public SoundVoice {
 public:
  explicit LibraryVoice(std::shared_ptr<Library> library) : library_(std::move(library)) {}
  ~LibraryVoice() override { library_->note("silent"); }
  LibraryVoice(const LibraryVoice&) = delete;
  LibraryVoice& operator=(const LibraryVoice&) = delete;
  void levels(int volume, int pan) override {
    library_->note("levels " + std::to_string(volume) + " " + std::to_string(pan));
  }
  void start(std::size_t frame, bool looping) override {
    library_->note((looping ? "loop from " : "play from ") + std::to_string(frame));
  }
  bool playing() override { return !library_->ends; }
  std::size_t frame() override { return 7; }

 private:
  std::shared_ptr<Library> library_;
};

class LibraryOutput : public SoundOutput {
 public:
  explicit LibraryOutput(std::shared_ptr<Library> library) : library_(std::move(library)) {}
  std::vector<std::string> devices() override {
    library_->note("devices");
    return {"Speakers", "Headset"};
  }
  bool open(std::size_t index, std::intptr_t window) override {
    library_->note("open " + std::to_string(index) + " " + std::to_string(window));
    return library_->opens;
  }
  bool openAgain() override {
    library_->note("open again");
    return library_->opens;
  }
  bool connected() override { return library_->connected; }
  void close() override { library_->note("close"); }
  std::unique_ptr<SoundVoice> voice(std::shared_ptr<const Wave> wave) override {
    library_->note("voice of " + std::to_string(wave->frames()) + " frames");
    return std::make_unique<LibraryVoice>(library_);
  }

 private:
  std::shared_ptr<Library> library_;
};

class ThreadedSound : public ::testing::Test {
 protected:
  ThreadedSound() { folder.write("a.wav", waveFile({1, 2, 3, 4})); }
  ~ThreadedSound() override { library->hang(""); }

  std::unique_ptr<SoundBuffer> buffer() { return device.createBuffer(folder / "a.wav"); }
  void open() { ASSERT_TRUE(device.open(1, 0)); }

  TempFolder folder;
  std::shared_ptr<Library> library = std::make_shared<Library>();
  ThreadedSoundDevice device{std::make_unique<LibraryOutput>(library),
                             ThreadedSoundDevice::Silence::Offered, 200ms};
};

TEST_F(ThreadedSound, TheListEndsWithADeviceThatPlaysNothing) {
  EXPECT_THAT(device.devices(), ElementsAre("Speakers", "Headset", "No sound"));
}

TEST_F(ThreadedSound, WithoutTheOfferTheListIsTheLibrarys) {
  ThreadedSoundDevice bare(std::make_unique<LibraryOutput>(library),
                           ThreadedSoundDevice::Silence::NotOffered);
  EXPECT_THAT(bare.devices(), ElementsAre("Speakers", "Headset"));
  EXPECT_FALSE(bare.open(3, 0));
}

TEST_F(ThreadedSound, PositionsCountFromOne) {
  EXPECT_TRUE(device.open(2, 42));
  EXPECT_THAT(library->seen(), Contains("open 1 42"));
}

TEST_F(ThreadedSound, APositionThatIsNoneCannotBeOpened) {
  EXPECT_FALSE(device.open(0, 0));
  EXPECT_FALSE(device.open(-1, 0));
  EXPECT_FALSE(device.open(4, 0));
}

TEST_F(ThreadedSound, NoSoundOpensAndPlaysNothing) {
  EXPECT_TRUE(device.open(3, 0));
  const auto sound = buffer();
  sound->playLooping();
  sound->volume(-100);
  EXPECT_EQ(raisedBy([&] { sound->volume(1); }), 5);
  EXPECT_EQ(raisedBy([&] { device.createBuffer(folder / "gone.wav"); }), 53);
  EXPECT_THAT(library->seen(), Each(testing::StrEq("devices")));
}

TEST_F(ThreadedSound, ALoopBeginsWithTheLevelsThatItIsGivenRightBehindItsStart) {
  open();
  const auto sound = buffer();
  sound->playLooping();
  sound->volume(-10000);
  sound->pan(-2223);
  EXPECT_TRUE(library->sees("loop from 0"));
  EXPECT_THAT(library->seen(), ElementsAre("devices", "open 0 0", "voice of 2 frames",
                                           "levels -10000 -2223", "loop from 0"));
}

TEST_F(ThreadedSound, LevelsOfAPlayingSoundChange) {
  open();
  const auto sound = buffer();
  sound->playLooping();
  ASSERT_TRUE(library->sees("loop from 0"));
  sound->volume(-500);
  EXPECT_TRUE(library->sees("levels -500 0"));
}

TEST_F(ThreadedSound, StopKeepsThePlaceAndRewindGoesBackToTheStart) {
  open();
  const auto sound = buffer();
  sound->playLooping();
  ASSERT_TRUE(library->sees("loop from 0"));
  sound->stop();
  ASSERT_TRUE(library->sees("silent"));
  sound->playLooping();
  EXPECT_TRUE(library->sees("loop from 7"));
  sound->stop();
  sound->rewind();
  sound->playOnce();
  EXPECT_TRUE(library->sees("play from 0"));
}

TEST_F(ThreadedSound, ASoundThatHasPlayedToItsEndPlaysAgainFromTheStart) {
  open();
  const auto sound = buffer();
  sound->playOnce();
  ASSERT_TRUE(library->sees("play from 0"));
  library->ends = true;
  ASSERT_TRUE(library->sees("silent")) << "its voice is given back";
  library->ends = false;
  sound->playOnce();
  EXPECT_TRUE(eventually([&] {
    const auto all = library->seen();
    return std::count(all.begin(), all.end(), "play from 0") == 2;
  }));
}

TEST_F(ThreadedSound, ASoundThatPlaysGoesOnWhenItIsPlayedAgain) {
  open();
  const auto sound = buffer();
  sound->playOnce();
  ASSERT_TRUE(library->sees("play from 0"));
  sound->playOnce();
  sound->volume(-77);
  ASSERT_TRUE(library->sees("levels -77 0"));
  EXPECT_THAT(library->seen(), Not(Contains("silent")));
}

TEST_F(ThreadedSound, ReleasingAPlayingSoundSilencesIt) {
  open();
  auto sound = buffer();
  sound->playLooping();
  ASSERT_TRUE(library->sees("loop from 0"));
  sound.reset();
  EXPECT_TRUE(library->sees("silent"));
}

TEST_F(ThreadedSound, ADeviceThatCannotBeOpenedIsFalse) {
  library->opens = false;
  EXPECT_FALSE(device.open(1, 0));
}

TEST_F(ThreadedSound, ALibraryThatHangsWhileOpeningCostsTheDeadlineAndCountsAsFailed) {
  library->hang("open 0 0");
  const auto began = std::chrono::steady_clock::now();
  EXPECT_FALSE(device.open(1, 0));
  EXPECT_LT(std::chrono::steady_clock::now() - began, 2s);
  const auto again = std::chrono::steady_clock::now();
  EXPECT_FALSE(device.open(1, 0));
  EXPECT_THAT(device.devices(), ElementsAre("No sound"));
  EXPECT_LT(std::chrono::steady_clock::now() - again, 150ms) << "it is not asked while it hangs";
}

TEST_F(ThreadedSound, ADeviceThatOpensTooLateIsClosedAgain) {
  library->hang("open 0 0");
  EXPECT_FALSE(device.open(1, 0));
  library->hang("");
  EXPECT_TRUE(library->sees("close"));
}

TEST_F(ThreadedSound, ALibraryThatHangsWhilePlayingKeepsNobodyWaiting) {
  open();
  const auto sound = buffer();
  library->hang("loop from 0");
  sound->playLooping();
  ASSERT_TRUE(library->sees("loop from 0"));
  const auto began = std::chrono::steady_clock::now();
  for (int i = 0; i < 100000; ++i) sound->volume(-i % 10000);
  EXPECT_LT(std::chrono::steady_clock::now() - began, 2s);
  library->hang("");
  EXPECT_TRUE(library->sees("levels -9999 0")) << "what it missed in between is not made up for";
}

TEST_F(ThreadedSound, ADeviceThatGoesAwayIsToldAndItsLoopsGoOnWhenItReturns) {
  open();
  const auto loop = buffer();
  const auto once = buffer();
  loop->playLooping();
  once->playOnce();
  ASSERT_TRUE(library->sees("play from 0"));
  library->opens = false;
  library->connected = false;
  std::optional<std::string> news;
  ASSERT_TRUE(eventually([&] { return (news = device.news()).has_value(); }));
  EXPECT_EQ(*news, "Sound device lost, it is taken again when it returns");
  loop->volume(-300);
  ASSERT_TRUE(library->sees("open again"));
  EXPECT_EQ(device.news(), std::nullopt);
  library->connected = true;
  library->opens = true;
  ASSERT_TRUE(eventually([&] { return (news = device.news()).has_value(); }));
  EXPECT_EQ(*news, "Sound device is back");
  const auto all = library->seen();
  EXPECT_EQ(std::count(all.begin(), all.end(), "loop from 0"), 2);
  EXPECT_EQ(std::count(all.begin(), all.end(), "play from 0"), 1);
  EXPECT_THAT(all, Contains("levels -300 0"));
}

TEST_F(ThreadedSound, SoundsOfOneFileShareItsSamplesAndAChangedFileIsReadAgain) {
  open();
  const auto first = buffer();
  folder.write("a.wav", waveFile({1, 2, 3, 4, 5, 6}));
  const auto second = buffer();
  second->playLooping();
  EXPECT_TRUE(library->sees("voice of 3 frames"));
  std::filesystem::remove(folder / "a.wav");
  EXPECT_EQ(raisedBy([&] { buffer(); }), 53);
}

TEST_F(ThreadedSound, AFileOfTheSameSizeIsReadAgainWhenItWasWrittenLater) {
  open();
  const auto first = buffer();
  const std::filesystem::path file = folder / "a.wav";
  const auto written = std::filesystem::last_write_time(file);
  // As many bytes, but of one channel: twice the frames.
  folder.write("a.wav", waveFile(WaveFormat{.channels = 1}, std::string(8, '\1')));
  std::filesystem::last_write_time(file, written + std::chrono::seconds(2));
  const auto second = buffer();
  second->playLooping();
  EXPECT_TRUE(library->sees("voice of 4 frames"));
}

TEST_F(ThreadedSound, WithoutASoundThereIsNoThreadAndNothingIsAsked) {
  EXPECT_EQ(device.news(), std::nullopt);
  EXPECT_THAT(library->seen(), IsEmpty());
}

}  // namespace
}  // namespace vorlent
