#include "platform/ThreadedSoundDevice.h"

#include <future>
#include <utility>

#include "base/files.h"
#include "platform/SilentBuffer.h"
#include "platform/SoundThread.h"

namespace vorlent {
namespace {

const std::string NoSound = "No sound";

/// One sound of the thread's.
class ThreadedBuffer : public SoundBuffer {
 public:
  ThreadedBuffer(std::shared_ptr<SoundThread> thread, std::shared_ptr<const Wave> wave)
      : thread_(std::move(thread)), id_(thread_->add(std::move(wave))) {}
  ~ThreadedBuffer() override { thread_->remove(id_); }
  ThreadedBuffer(const ThreadedBuffer&) = delete;
  ThreadedBuffer& operator=(const ThreadedBuffer&) = delete;

  void volume(int hundredths_dB) override {
    checkVolume(hundredths_dB);
    thread_->change(id_, [=](WantedSound& sound) { sound.volume = hundredths_dB; });
  }
  void pan(int hundredths_dB) override {
    checkPan(hundredths_dB);
    thread_->change(id_, [=](WantedSound& sound) { sound.pan = hundredths_dB; });
  }
  void playOnce() override { play(WantedSound::Play::Once); }
  void playLooping() override { play(WantedSound::Play::Looping); }
  void stop() override {
    thread_->change(id_, [](WantedSound& sound) { sound.play = WantedSound::Play::Stopped; });
  }
  void rewind() override {
    thread_->change(id_, [](WantedSound& sound) { ++sound.rewinds; });
  }

 private:
  void play(WantedSound::Play how) {
    thread_->change(id_, [=](WantedSound& sound) {
      sound.play = how;
      ++sound.starts;
    });
  }

  std::shared_ptr<SoundThread> thread_;
  SoundThread::SoundId id_;
};

}  // namespace

ThreadedSoundDevice::ThreadedSoundDevice(std::unique_ptr<SoundOutput> output, Silence silence,
                                         std::chrono::milliseconds deadline)
    : thread_(std::make_shared<SoundThread>(std::move(output))),
      silence_(silence),
      deadline_(deadline) {}

ThreadedSoundDevice::~ThreadedSoundDevice() {
  if (!running_.joinable()) return;
  thread_->end();
  if (thread_->endsWithin(deadline_))
    running_.join();
  else
    running_.detach();
}

template <class Question>
auto ThreadedSoundDevice::ask(Question question) {
  using Answer = decltype(question(*thread_, std::declval<const std::atomic<bool>&>()));
  if (late_ && !*late_) return Answer();
  if (!running_.joinable()) running_ = std::thread([thread = thread_] { thread->run(); });
  const auto answer = std::make_shared<std::promise<Answer>>();
  const auto givenUp = std::make_shared<std::atomic<bool>>(false);
  const auto answered = std::make_shared<std::atomic<bool>>(false);
  thread_->ask([=](SoundThread& thread) mutable {
    answer->set_value(question(thread, *givenUp));
    *answered = true;
  });
  auto future = answer->get_future();
  late_.reset();
  if (future.wait_for(deadline_) == std::future_status::ready) return future.get();
  *givenUp = true;
  late_ = answered;
  return Answer();
}

std::vector<std::string> ThreadedSoundDevice::realDevices() {
  return ask(
      [](SoundThread& thread, const std::atomic<bool>&) { return thread.output().devices(); });
}

std::vector<std::string> ThreadedSoundDevice::devices() {
  std::vector<std::string> names = realDevices();
  if (silence_ == Silence::Offered) names.push_back(NoSound);
  return names;
}

/// One that opens when nobody waits for it any more is closed again.
bool ThreadedSoundDevice::open(int position, std::intptr_t window) {
  const std::size_t real = realDevices().size();
  const auto index = static_cast<std::size_t>(position - 1);
  silent_ = silence_ == Silence::Offered && index == real && (!late_ || *late_);
  if (silent_) return true;
  if (position < 1 || index >= real) return false;
  return ask([=](SoundThread& thread, const std::atomic<bool>& givenUp) {
    const bool open = thread.output().open(index, window);
    if (open && givenUp) thread.output().close();
    if (open && !givenUp) thread.opened();
    return open && !givenUp;
  });
}

std::unique_ptr<SoundBuffer> ThreadedSoundDevice::createBuffer(const std::string& path) {
  auto wave = waveOf(path);
  if (silent_) return std::make_unique<SilentBuffer>();
  return std::make_unique<ThreadedBuffer>(thread_, std::move(wave));
}

std::shared_ptr<const Wave> ThreadedSoundDevice::waveOf(const std::string& path) {
  LoadedWave& loaded = waves_[path];
  const FileStamp file = fileStamp(path);
  auto wave = loaded.wave.lock();
  if (!wave || file != loaded.file) {
    wave = std::make_shared<const Wave>(readWave(path));
    loaded = {wave, file};
  }
  return wave;
}

std::optional<std::string> ThreadedSoundDevice::news() { return thread_->takeNews(); }

}  // namespace vorlent
