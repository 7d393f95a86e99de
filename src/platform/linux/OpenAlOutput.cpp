#include "platform/linux/OpenAlOutput.h"

#include <AL/alext.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <string_view>

namespace vorlent {

struct OpenAlWave {
  explicit OpenAlWave(std::shared_ptr<const Wave> theWave);
  ~OpenAlWave() { alDeleteBuffers(static_cast<ALsizei>(buffers.size()), buffers.data()); }
  OpenAlWave(const OpenAlWave&) = delete;
  OpenAlWave& operator=(const OpenAlWave&) = delete;

  std::shared_ptr<const Wave> wave;
  std::array<ALuint, 2> buffers{};  ///< left, right
};

OpenAlWave::OpenAlWave(std::shared_ptr<const Wave> theWave) : wave(std::move(theWave)) {
  alGenBuffers(static_cast<ALsizei>(buffers.size()), buffers.data());
  for (std::size_t channel = 0; channel < buffers.size(); ++channel) {
    std::vector<std::int16_t> alone(wave->samples.size());
    for (std::size_t i = channel; i < alone.size(); i += 2) alone[i] = wave->samples[i];
    alBufferData(buffers[channel], AL_FORMAT_STEREO16, alone.data(),
                 static_cast<ALsizei>(alone.size() * sizeof(std::int16_t)), wave->rate_Hz);
  }
}

namespace {

float gainOf(int hundredths_dB) {
  constexpr float HundredthsPerDecade = 2000;
  return std::pow(10.F, static_cast<float>(hundredths_dB) / HundredthsPerDecade);
}

class OpenAlVoice : public SoundVoice {
 public:
  using Sources = std::array<ALuint, 2>;

  OpenAlVoice(Sources sources, std::shared_ptr<OpenAlWave> wave)
      : sources_(sources), wave_(std::move(wave)) {
    for (std::size_t channel = 0; channel < sources_.size(); ++channel) {
      alSourcei(sources_[channel], AL_BUFFER, static_cast<ALint>(wave_->buffers[channel]));
      alSourcei(sources_[channel], AL_DIRECT_CHANNELS_SOFT, AL_TRUE);
    }
  }
  ~OpenAlVoice() override {
    alSourceStopv(count(), sources_.data());
    alDeleteSources(count(), sources_.data());
  }
  OpenAlVoice(const OpenAlVoice&) = delete;
  OpenAlVoice& operator=(const OpenAlVoice&) = delete;

  void levels(int volume, int pan) override {
    alSourcef(sources_[0], AL_GAIN, gainOf(volume - std::max(pan, 0)));
    alSourcef(sources_[1], AL_GAIN, gainOf(volume + std::min(pan, 0)));
  }
  /// Both begin in the same moment.
  void start(std::size_t frame, bool looping) override {
    for (const ALuint source : sources_) {
      alSourcei(source, AL_LOOPING, looping ? AL_TRUE : AL_FALSE);
      alSourcei(source, AL_SAMPLE_OFFSET, static_cast<ALint>(frame));
    }
    alSourcePlayv(count(), sources_.data());
  }
  bool playing() override { return value(AL_SOURCE_STATE) == AL_PLAYING; }
  std::size_t frame() override { return static_cast<std::size_t>(value(AL_SAMPLE_OFFSET)); }

 private:
  ALsizei count() const { return static_cast<ALsizei>(sources_.size()); }
  ALint value(ALenum what) const {
    ALint value = 0;
    alGetSourcei(sources_[0], what, &value);
    return value;
  }

  Sources sources_;
  std::shared_ptr<OpenAlWave> wave_;
};

/// What goes straight to a loudspeaker is lost where the device has none there: on one with a
/// single channel, all. Asked for stereo, the sound server mixes both channels for it. A file that
/// the user names in ALSOFT_CONF stays his.
void askForStereo() {
  constexpr const char* Variable = "ALSOFT_CONF";
  constexpr std::string_view Wanted = "channels = stereo\n";
  if (std::getenv(Variable) != nullptr) return;
  const int file = memfd_create("vorlent-stereo", MFD_CLOEXEC);
  if (file < 0) return;
  if (write(file, Wanted.data(), Wanted.size()) == static_cast<ssize_t>(Wanted.size()))
    setenv(Variable, ("/proc/self/fd/" + std::to_string(file)).c_str(), 1);
}

}  // namespace

void SystemSoundOutput::Library::close() {
  waves.clear();
  if (context != nullptr) {
    alcMakeContextCurrent(nullptr);
    alcDestroyContext(context);
    context = nullptr;
  }
  if (device != nullptr) alcCloseDevice(device);
  device = nullptr;
}

/// Before the library reads its configuration, and before there are threads.
SystemSoundOutput::SystemSoundOutput() : library_(std::make_unique<Library>()) { askForStereo(); }

SystemSoundOutput::SystemSoundOutput(std::unique_ptr<Library> library)
    : library_(std::move(library)) {}

SystemSoundOutput::~SystemSoundOutput() = default;

std::vector<std::string> SystemSoundOutput::devices() {
  auto& names = library_->names;
  names.clear();
  const bool all = alcIsExtensionPresent(nullptr, "ALC_ENUMERATE_ALL_EXT") == ALC_TRUE;
  const ALCchar* list =
      alcGetString(nullptr, all ? ALC_ALL_DEVICES_SPECIFIER : ALC_DEVICE_SPECIFIER);
  // Names that end with a zero each, and an empty one behind the last.
  for (; list != nullptr && *list != '\0'; list += names.back().size() + 1)
    names.emplace_back(list);
  return names;
}

bool SystemSoundOutput::open(std::size_t index, std::intptr_t /*window*/) {
  if (index >= library_->names.size()) return false;
  library_->name = library_->names[index];
  return openAgain();
}

bool SystemSoundOutput::openAgain() {
  Library& library = *library_;
  library.close();
  library.device = library.openDevice(library.name);
  if (library.device == nullptr) return false;
  library.context = alcCreateContext(library.device, library.contextAttributes());
  if (library.context == nullptr || alcMakeContextCurrent(library.context) != ALC_TRUE) {
    library.close();
    return false;
  }
  return true;
}

bool SystemSoundOutput::connected() {
  if (alcIsExtensionPresent(library_->device, "ALC_EXT_disconnect") != ALC_TRUE) return true;
  ALCint connected = ALC_TRUE;
  alcGetIntegerv(library_->device, ALC_CONNECTED, 1, &connected);
  return connected == ALC_TRUE;
}

void SystemSoundOutput::close() { library_->close(); }

std::unique_ptr<SoundVoice> SystemSoundOutput::voice(std::shared_ptr<const Wave> wave) {
  if (library_->context == nullptr) return nullptr;
  alGetError();
  OpenAlVoice::Sources sources{};
  alGenSources(static_cast<ALsizei>(sources.size()), sources.data());
  if (alGetError() != AL_NO_ERROR) return nullptr;
  return std::make_unique<OpenAlVoice>(
      sources, library_->waves.of(wave, [&] { return std::make_shared<OpenAlWave>(wave); }));
}

}  // namespace vorlent
