#include "extras/SoundEvents.h"
#include "extras/SoundSettings.h"
#include "extras/clsSound.h"
#include "simlink/clsEng.h"
#include "simlink/statements.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

constexpr int Jet = 1;

/// What a kind of engine's starter switch reads while it turns, and for how many polls the sound
/// goes on without it.
struct StarterKind {
  std::int16_t on;
  std::int16_t limit;
};
constexpr StarterKind JetStarter{1, 60};
constexpr StarterKind MagnetoStarter{4, 20};

constexpr const StarterKind& starterOf(std::int16_t engineType) {
  return engineType == Jet ? JetStarter : MagnetoStarter;
}

}  // namespace

bool SoundEvents::isStarterOn(int engine) const {
  const modPublic& v = context_.store;
  return v.Engines(engine).Starter == starterOf(v.EngineType).on;
}

void SoundEvents::StarterSound(int engine) {
  const std::int16_t Combustion = context_.store.Engines(engine).Combustion;
  const std::int16_t limit = starterOf(context_.store.EngineType).limit;
  if (!StarterPlaying(engine) && isStarterOn(engine)) startStarter(engine);
  if (StarterPlaying(engine) && Combustion == 1) {
    const std::int16_t stored = storedMagneto(engine);
    stopStarter(engine);
    if (context_.store.EngineType != Jet)
      attempt([&] { context_.accessors.eng->Magneto(engine, stored); });
  }
  if (StarterCount(engine) > limit && !isStarterOn(engine)) stopStarter(engine);
  if (StarterPlaying(engine) && Combustion == 0)
    attempt([&] { set(StarterCount(engine), StarterCount(engine) + 1.0); });
}

void SoundEvents::startStarter(int engine) {
  const auto& start = context_.settings.start;
  attempt([&] { StarterId(engine) = sound().dxPlayLoop(pathOf(start.file), start.Volume); });
  attempt([&] { sound().dxPlayPan(StarterId(engine), context_.store.EnginePan(engine)); });
  StarterPlaying(engine) = true;
}

/// What a start by button has recorded, else where it stood before the starter came on.
std::int16_t SoundEvents::storedMagneto(int engine) const {
  const std::int16_t recorded = context_.store.Engines(engine).RecordedStart;
  return recorded == Engine::NoStart ? magnetoBefore_(engine) : recorded;
}

void SoundEvents::noteMagnetos() {
  for (int engine = 1; engine <= 4; ++engine)
    if (!isStarterOn(engine)) magnetoBefore_(engine) = context_.store.Engines(engine).Starter;
}

void SoundEvents::stopStarter(int engine) {
  attempt([&] { sound().dxPlayStop(StarterId(engine)); });
  StarterPlaying(engine) = false;
  StarterCount(engine) = 0;
  context_.store.Engines(engine).RecordedStart = Engine::NoStart;
}

}  // namespace vorlent
