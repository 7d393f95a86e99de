#include "extras/SoundEvents.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "extras/SoundSettings.h"
#include "extras/clsSound.h"
#include "platform/SoundDevice.h"
#include "platform/StatusLine.h"
#include "simlink/statements.h"
#include "store/modPublic.h"

namespace vorlent {

/// Made before its device is opened: while the operator reads a box, other events may ask for it.
clsSound& SoundEvents::sound() {
  if (!context_.sound) {
    context_.sound = std::make_unique<clsSound>(context_.device);
    context_.sound->createDevice(context_.store.SoundDeviceId, context_.store.FsWindow,
                                 context_.op);
  }
  return *context_.sound;
}

std::string SoundEvents::pathOf(const std::string& file) const {
  return context_.store.CockpitPath + "sound\\" + file;
}

void SoundEvents::startSounds() {
  const SoundSettings& settings = context_.settings;
  try {
    if (settings.rumble.Enabled == 1) {
      RumbleId = sound().dxPlayLoop(pathOf(settings.rumble.file), 0);
      sound().dxWaveVolume(RumbleId, 0);
      context_.status.SetStatusText(1, "Start sound ");
    }
    if (settings.bump.Enabled == 1) queue(Queue1Id, settings.bump.file, 1);
    if (settings.tyres.Enabled == 1) queue(Queue2Id, settings.tyres.file, 2);
  } catch (const RuntimeError& error) {
    context_.status.SetStatusText(1, error.description());
    throw;
  }
}

void SoundEvents::queue(std::int32_t& id, const std::string& file, int number) {
  id = sound().dxQueueWave(pathOf(file));
  context_.status.SetStatusText(1, "Init sound queue " + std::to_string(number));
}

bool SoundEvents::stopRumble() {
  if (RumbleId <= 0) return false;
  attempt([this] { sound().dxPlayStop(RumbleId); });
  RumbleId = 0;
  sound().ResetBuffer();
  return true;
}

/// docs/peculiarities.md: queues without rumble.
void SoundEvents::stopSounds() {
  if (!stopRumble()) return;
  context_.status.SetStatusText(1, "Stop sound");
  if (Queue1Id > 0) context_.status.SetStatusText(1, "Kill sound queue 1");
  Queue1Id = 0;
  if (Queue2Id > 0) context_.status.SetStatusText(1, "Kill sound queue 2");
  Queue2Id = 0;
}

void SoundEvents::PollStep() {
  tellNews();
  if (context_.host.acftSoundEnabled()) {
    if (context_.settings.start.Enabled == 1)
      for (int engine = 1; engine <= std::min<int>(context_.store.EngineCount, 4); ++engine)
        StarterSound(engine);
    if (context_.host.AnyClientUp()) GroundSounds();
  }
  noteMagnetos();
}

void SoundEvents::tellNews() {
  if (const auto news = context_.device.news()) context_.status.SetStatusText(1, *news);
}

}  // namespace vorlent
