#include "extras/clsSound.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "platform/Operator.h"
#include "platform/SoundDevice.h"

namespace vorlent {
namespace {

/// Rounded down. A logarithm is not exact: what is within 0.01 of a whole number is meant as that.
int wholePart(double x) {
  constexpr double Inexactness = 0.01;
  const double nearest = std::nearbyint(x);
  return toInt32(std::fabs(x - nearest) <= Inexactness ? nearest : std::floor(x));
}

double log10Of(double x) { return std::log(x) / std::log(10.0); }

}  // namespace

int deviceVolume(float volume) {
  constexpr double Quietest = 0.00001;
  constexpr double HundredthsPerDecade = 2000;
  return wholePart(log10Of(std::max(double{volume} / 100, Quietest)) * HundredthsPerDecade);
}

/// docs/peculiarities.md: pan near the centre.
int devicePan(float pan) {
  constexpr double HundredthsPerDecade = -800;
  const double aside = (double{pan} - 50) * 20;
  const double x = aside > 0 ? 1 / aside : -aside;
  return wholePart(log10Of(x == 0 ? 1 : x) * HundredthsPerDecade);
}

clsSound::clsSound(SoundDevice& device) : device_(device) { ResetBuffer(); }

clsSound::~clsSound() = default;

void clsSound::createDevice(std::int16_t position, std::intptr_t window, Operator& op) {
  open_ = device_.open(position, window);
  if (!open_) op.messageBox("Could not create Directsound object", BoxIcon::Plain, "Vorlent");
}

std::int32_t clsSound::load(const std::string& path) {
  const auto LastId = static_cast<std::int32_t>(Buffers_.size());
  Buffers_.emplace_back();
  if (!open_) throw RuntimeError(RuntimeError::ObjectNotSet);
  Buffers_.back() = device_.createBuffer(path);
  return LastId;
}

SoundBuffer& clsSound::buffer(std::int32_t id) {
  if (id < 0 || static_cast<std::size_t>(id) >= Buffers_.size())
    throw RuntimeError(RuntimeError::SubscriptOutOfRange);
  const auto& found = Buffers_[static_cast<std::size_t>(id)];
  if (!found) throw RuntimeError(RuntimeError::ObjectNotSet);
  return *found;
}

std::int32_t clsSound::dxPlayLoop(const std::string& path, std::int16_t volume) {
  const std::int32_t id = load(path);
  if (volume > 0) dxWaveVolume(id, volume);
  buffer(id).playLooping();
  return id;
}

std::int32_t clsSound::dxQueueWave(const std::string& path) { return load(path); }

void clsSound::dxPlayQueue(std::int32_t id, std::int16_t volume) {
  if (volume >= 1) dxWaveVolume(id, volume);
  buffer(id).playOnce();
}

void clsSound::dxPlayStop(std::int32_t id) {
  buffer(id).stop();
  buffer(id).rewind();
}

void clsSound::dxPlayPan(std::int32_t id, float pan) { buffer(id).pan(devicePan(pan)); }

void clsSound::dxWaveVolume(std::int32_t id, float volume) {
  buffer(id).volume(deviceVolume(volume));
}

int clsSound::ResetBuffer() {
  Buffers_.clear();
  Buffers_.emplace_back();
  return 0;
}

std::int16_t clsSound::Buffers() const { return toInt16(static_cast<double>(Buffers_.size()) - 1); }

}  // namespace vorlent
