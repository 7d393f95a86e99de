#include "platform/SoundThread.h"

#include <chrono>
#include <thread>
#include <utility>

namespace vorlent {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

/// So that what one step of the server says is heard at once: a loop begins as quiet as it was told
/// to be right behind its start.
constexpr auto Gathering = 2ms;
/// How soon a lost device, and a sound that has played to its end, are noticed.
constexpr auto LookPeriod = 100ms;
constexpr auto SearchPeriod = 1s;

}  // namespace

void SoundThread::run() {
  while (turn()) {
  }
  sounds_.clear();
  if (open_) output_->close();
  output_.reset();
  const std::lock_guard lock(mutex_);
  ended_ = true;
  endedSignal_.notify_all();
}

/// False when it is the last one.
bool SoundThread::turn() {
  std::function<void(SoundThread&)> question;
  {
    std::unique_lock lock(mutex_);
    const auto due = [this] { return somethingToDo(); };
    if (open_)
      wake_.wait_for(lock, LookPeriod, due);
    else
      wake_.wait(lock, due);
    if (ending_) return false;
    if (!questions_.empty()) {
      question = std::move(questions_.front());
      questions_.pop_front();
    }
  }
  if (question) {
    question(*this);
    return true;
  }
  if (!open_) {
    takeChanges();
    return true;
  }
  carryOut(takeChanges());
  look();
  return true;
}

void SoundThread::ask(std::function<void(SoundThread&)> question) {
  const std::lock_guard lock(mutex_);
  questions_.push_back(std::move(question));
  wake_.notify_one();
}

SoundThread::SoundId SoundThread::add(std::shared_ptr<const Wave> wave) {
  const std::lock_guard lock(mutex_);
  wanted_[++lastId_].wave = std::move(wave);
  return lastId_;
}

void SoundThread::change(SoundId id, const std::function<void(WantedSound&)>& how) {
  const std::lock_guard lock(mutex_);
  how(wanted_[id]);
  changed_.insert(id);
  wake_.notify_one();
}

void SoundThread::remove(SoundId id) {
  const std::lock_guard lock(mutex_);
  wanted_.erase(id);
  changed_.insert(id);
  wake_.notify_one();
}

std::optional<std::string> SoundThread::takeNews() {
  const std::lock_guard lock(mutex_);
  if (news_.empty()) return std::nullopt;
  std::string line = std::move(news_.front());
  news_.pop_front();
  return line;
}

void SoundThread::end() {
  const std::lock_guard lock(mutex_);
  ending_ = true;
  wake_.notify_one();
}

bool SoundThread::endsWithin(std::chrono::milliseconds limit) {
  std::unique_lock lock(mutex_);
  return endedSignal_.wait_for(lock, limit, [this] { return ended_; });
}

SoundThread::Changes SoundThread::takeChanges() {
  {
    const std::lock_guard lock(mutex_);
    if (changed_.empty()) return {};
  }
  std::this_thread::sleep_for(Gathering);
  const std::lock_guard lock(mutex_);
  Changes changes;
  for (const SoundId id : std::exchange(changed_, {})) {
    const auto found = wanted_.find(id);
    changes[id] = found == wanted_.end() ? std::nullopt : std::optional(found->second);
  }
  return changes;
}

void SoundThread::carryOut(const Changes& changes) {
  for (const auto& [id, wanted] : changes) {
    if (wanted)
      carryOut(sounds_[id], *wanted);
    else
      sounds_.erase(id);
  }
}

void SoundThread::carryOut(Sound& sound, const WantedSound& wanted) {
  const WantedSound before = std::exchange(sound.done, wanted);
  const bool stopped = wanted.play == WantedSound::Play::Stopped;
  const bool rewound = wanted.rewinds != before.rewinds;
  const bool sounding = sound.voice && sound.voice->playing();
  if (!sounding || stopped || rewound || wanted.play != before.play) halt(sound);
  if (rewound) sound.frame = 0;
  if (stopped) return;
  if (sound.voice)
    sound.voice->levels(wanted.volume, wanted.pan);
  else if (sounding || wanted.starts != before.starts)
    begin(sound);
}

void SoundThread::begin(Sound& sound) {
  if (lost_) return;
  sound.voice = output_->voice(sound.done.wave);
  if (!sound.voice) return;
  sound.voice->levels(sound.done.volume, sound.done.pan);
  sound.voice->start(sound.frame, sound.done.play == WantedSound::Play::Looping);
}

/// It stands where it stopped; one that has played to its end is back at the start.
void SoundThread::halt(Sound& sound) {
  if (!sound.voice) return;
  sound.frame = sound.voice->playing() ? sound.voice->frame() : 0;
  sound.voice.reset();
}

void SoundThread::look() {
  const auto now = steady_clock::now();
  if (now < nextLook_) return;
  nextLook_ = now + LookPeriod;
  if (lost_) {
    findAgain();
    return;
  }
  for (auto& [id, sound] : sounds_)
    if (sound.voice && !sound.voice->playing()) halt(sound);
  if (!output_->connected()) lose();
}

void SoundThread::lose() {
  lost_ = true;
  nextSearch_ = steady_clock::now() + SearchPeriod;
  for (auto& [id, sound] : sounds_) {
    sound.voice.reset();
    sound.frame = 0;
  }
  output_->close();
  tell("Sound device lost, it is taken again when it returns");
}

/// What loops goes on; what was to be heard once is over.
void SoundThread::findAgain() {
  if (steady_clock::now() < nextSearch_) return;
  nextSearch_ = steady_clock::now() + SearchPeriod;
  if (!output_->openAgain()) return;
  lost_ = false;
  for (auto& [id, sound] : sounds_)
    if (sound.done.play == WantedSound::Play::Looping) begin(sound);
  tell("Sound device is back");
}

void SoundThread::tell(const std::string& line) {
  constexpr std::size_t MostUntold = 8;
  const std::lock_guard lock(mutex_);
  if (news_.size() < MostUntold) news_.push_back(line);
}

}  // namespace vorlent
