#include <algorithm>
#include <cmath>

#include "extras/SoundEvents.h"
#include "extras/SoundSettings.h"
#include "extras/clsSound.h"
#include "simlink/statements.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

constexpr std::int16_t PollsToSettle = 4;
constexpr float LeftSide = 20;
constexpr float Centre = 50;
constexpr float RightSide = 80;

/// From the side of the wheels that carry more: a bank to the left is positive.
float panFor(float bank_deg) {
  const float x = bank_deg > 180 ? bank_deg - 360 : bank_deg;
  if (x < -1) return RightSide;
  return x > 1 ? LeftSide : Centre;
}

}  // namespace

void SoundEvents::GroundSounds() {
  const std::int16_t OnGround = context_.store.OnGround;
  if (OnGround == 1) panGroundSounds();
  if (WasOnGround && OnGround == 0) liftOff();
  if (!WasOnGround && OnGround == 1) touchDown();
  attempt([this] { set(SoundPollCount, SoundPollCount + 1.0); });
  if (SoundPollCount >= PollsToSettle) settleVolumes();
}

bool SoundEvents::anySoundLoaded() {
  bool any = false;
  attempt([&] { any = sound().Buffers() > 0; });
  return any;
}

void SoundEvents::panGroundSounds() {
  const SoundSettings& settings = context_.settings;
  const float pan = panFor(context_.store.Bank);
  if (!anySoundLoaded()) return;
  const auto panTo = [&](bool enabled, std::int32_t id) {
    if (enabled) attempt([&] { sound().dxPlayPan(id, pan); });
  };
  panTo(settings.rumble.Enabled == 1, RumbleId);
  panTo(settings.bump.Enabled == 1, Queue1Id);
  panTo(settings.tyres.Enabled == 1, Queue2Id);
}

void SoundEvents::liftOff() {
  if (context_.settings.rumble.Enabled == 1) attempt([this] { sound().dxWaveVolume(RumbleId, 0); });
  WasOnGround = false;
}

void SoundEvents::touchDown() {
  const SoundSettings& settings = context_.settings;
  if (settings.rumble.Enabled == 1) setRumbleVolume();
  if (settings.bump.Enabled == 1) {
    setBumpVolume();
    attempt([this] { sound().dxPlayQueue(Queue1Id, 0); });
  }
  if (settings.tyres.Enabled == 1) {
    attempt([&] { sound().dxWaveVolume(Queue2Id, settings.tyres.Volume); });
    attempt([this] { sound().dxPlayQueue(Queue2Id, 0); });
  }
  WasOnGround = true;
}

void SoundEvents::settleVolumes() {
  if (context_.store.Paused != 0 && context_.settings.rumble.Enabled == 1)
    attempt([this] { sound().dxWaveVolume(RumbleId, 100); });
  if (anySoundLoaded()) {
    setRumbleVolume();
    setBumpVolume();
  }
  SoundPollCount = 1;
}

void SoundEvents::setRumbleVolume() {
  const auto& rumble = context_.settings.rumble;
  const modPublic& v = context_.store;
  const double bySpeed = (double{0} + v.GroundSpeed - rumble.Threshold) * rumble.Factor;
  const double volume = bySpeed * v.OnGround > 0 ? bySpeed + rumble.Volume : 0;
  attempt([&] {
    sound().dxWaveVolume(RumbleId, toSingle(std::min<double>(volume, rumble.MaxVolume)));
  });
}

/// docs/peculiarities.md: half a bump.
void SoundEvents::setBumpVolume() {
  const auto& bump = context_.settings.bump;
  const double bySpeed = std::fabs(context_.store.VerticalSpeed) * double{bump.Factor};
  const double volume =
      bySpeed + bump.Volume > bump.MaxVolume ? bump.MaxVolume : bySpeed / 2 + bump.Volume;
  attempt([&] { sound().dxWaveVolume(Queue1Id, toSingle(volume)); });
}

}  // namespace vorlent
