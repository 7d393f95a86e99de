#include "support/IndependentSounds.h"

#include <algorithm>
#include <cmath>

namespace vorlent {
namespace {

// Hundredths of a decibel; one within 0.01 of a whole number counts as that number.
int wholePart(double x) {
  const double nearest = std::round(x);
  return static_cast<int>(std::abs(x - nearest) <= 0.01 ? nearest : std::floor(x));
}

}  // namespace

std::vector<std::string> IndependentSounds::takeCalls() {
  std::vector<std::string> taken;
  taken.swap(calls_);
  std::stable_partition(taken.begin(), taken.end(),
                        [](const std::string& call) { return !call.starts_with("magneto"); });
  return taken;
}

std::string IndependentSounds::state() const {
  std::string text = "rumble " + std::to_string(rumble_) + ", bump " + std::to_string(bump_) +
                     ", tyres " + std::to_string(tyres_) + ", loaded " +
                     std::to_string(list_.size() - 1) + ", polls " + std::to_string(polls_) +
                     (wasOnGround_ ? ", was on the ground" : ", was in the air");
  for (std::size_t n = 1; n < starters_.size(); ++n)
    text += ", starter " + std::to_string(starters_[n].id) +
            (starters_[n].plays ? " plays " : " still ") + std::to_string(starters_[n].polls);
  return text;
}

// The device opens at the first thing that is asked of it.
int IndependentSounds::loaded() {
  if (!deviceOpen_) calls_.push_back("open " + std::to_string(devicePosition));
  deviceOpen_ = true;
  return static_cast<int>(list_.size()) - 1;
}

// 0 for a missing file, whose element stays empty.
int IndependentSounds::load(const std::string& file) {
  const int id = loaded() + 1;
  calls_.push_back("load " + file);
  const bool isThere = !missing.contains(file);
  list_.push_back(isThere ? file : "");
  return isThere ? id : 0;
}

// 0 where the file is missing or the volume refused: nothing is played then.
int IndependentSounds::loop(const std::string& file, int percent) {
  const int id = load(file);
  if (id == 0 || (percent > 0 && !volume(id, percent))) return 0;
  ask(id, "loop");
  return id;
}

bool IndependentSounds::ask(int id, const std::string& what) {
  if (id > loaded() || id < 1) return false;
  const std::string& file = list_[static_cast<std::size_t>(id)];
  if (file.empty()) return false;
  calls_.push_back(file + " " + what);
  return true;
}

bool IndependentSounds::volume(int id, double exact) {
  const double percent = static_cast<float>(exact);
  loaded();
  const int wanted = wholePart(std::log10(std::max(percent / 100, 0.00001)) * 2000);
  return wanted <= 0 && ask(id, "volume " + std::to_string(wanted));
}

void IndependentSounds::pan(int id, double percent) {
  double x = percent > 50 ? 1 / ((percent - 50) * 20) : (50 - percent) * 20;
  if (x == 0) x = 1;
  ask(id, "pan " + std::to_string(wholePart(std::log10(x) * -800)));
}

void IndependentSounds::stop(int id) {
  ask(id, "stop");
  ask(id, "rewind");
}

void IndependentSounds::firstClient() {
  if (settings.rumble) {
    rumble_ = loop("rumble.wav", 0);
    volume(rumble_, 0);
  }
  if (settings.bump) bump_ = load("bump.wav");
  if (settings.tyres) tyres_ = load("tyres.wav");
}

void IndependentSounds::stopClients() {
  if (rumble_ == 0) return;
  stop(rumble_);
  for (const std::string& file : list_)
    if (!file.empty()) calls_.push_back(file + " release");
  list_ = {""};
  rumble_ = bump_ = tyres_ = 0;
}

void IndependentSounds::poll(const World& world) {
  if (world.menu && settings.start)
    for (int n = 1; n <= world.engineCount; ++n) starter(n, world);
  if (world.menu && world.anyClient) ground(world);
  const int on = world.jet ? 1 : 4;
  for (std::size_t n = 1; n < starters_.size(); ++n)
    if (world.engines[n].starter != on) starters_[n].magnetoBefore = world.engines[n].starter;
}

void IndependentSounds::silence(Starter& starter) {
  stop(starter.id);
  starter.plays = false;
  starter.polls = 0;
  starter.recorded = -1;
}

void IndependentSounds::starter(int engine, const World& world) {
  const Engine& now = world.engines[static_cast<std::size_t>(engine)];
  Starter& it = starters_[static_cast<std::size_t>(engine)];
  const int on = world.jet ? 1 : 4;
  const int limit = world.jet ? 60 : 20;
  if (!it.plays && now.starter == on) {
    if (const int id = loop("start.wav", settings.startVolume); id > 0) it.id = id;
    pan(it.id, now.pan);
    it.plays = true;
  }
  if (it.plays && now.combustion == 1) {
    const int magneto = it.recorded >= 0 ? it.recorded : it.magnetoBefore;
    silence(it);
    if (!world.jet)
      calls_.push_back("magneto " + std::to_string(engine) + " " + std::to_string(magneto));
  }
  if (it.polls > limit && now.starter != on) silence(it);
  if (it.plays && now.combustion == 0) it.polls = std::min(it.polls + 1, 32767);
}

void IndependentSounds::ground(const World& world) {
  if (world.onGround == 1) panAll(world);
  if (wasOnGround_ && world.onGround == 0) {
    if (settings.rumble) volume(rumble_, 0);
    wasOnGround_ = false;
  }
  if (!wasOnGround_ && world.onGround == 1) land(world);
  if (++polls_ >= 4) settle(world);
}

void IndependentSounds::panAll(const World& world) {
  const double x = world.bank_deg > 180 ? world.bank_deg - 360 : world.bank_deg;
  const double side = x < -1 ? 80 : x > 1 ? 20 : 50;
  if (loaded() == 0) return;
  if (settings.rumble) pan(rumble_, side);
  if (settings.bump) pan(bump_, side);
  if (settings.tyres) pan(tyres_, side);
}

void IndependentSounds::land(const World& world) {
  if (settings.rumble) rumbleLoudness(world, true);
  if (settings.bump) {
    volume(bump_, bumpLoudness(world));
    ask(bump_, "play");
  }
  if (settings.tyres) {
    volume(tyres_, settings.tyresVolume);
    ask(tyres_, "play");
  }
  wasOnGround_ = true;
}

void IndependentSounds::settle(const World& world) {
  if (world.paused != 0 && settings.rumble) volume(rumble_, 100);
  if (loaded() > 0) {
    rumbleLoudness(world, world.onGround > 0);
    volume(bump_, bumpLoudness(world));
  }
  polls_ = 1;
}

void IndependentSounds::rumbleLoudness(const World& world, bool rolling) {
  const double part = (world.groundSpeed_kt - settings.threshold_kt) * settings.rumbleFactor;
  const double loud = part > 0 && rolling ? part + settings.rumbleVolume : 0;
  volume(rumble_, std::min<double>(loud, settings.rumbleMost));
}

double IndependentSounds::bumpLoudness(const World& world) const {
  const double part = std::abs(world.verticalSpeed_ftmin) * settings.bumpFactor;
  if (part + settings.bumpVolume > settings.bumpMost) return settings.bumpMost;
  return part / 2 + settings.bumpVolume;
}

}  // namespace vorlent
