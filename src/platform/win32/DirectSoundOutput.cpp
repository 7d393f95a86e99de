#define DIRECTSOUND_VERSION 0x0800
#include <windows.h>
// After the system's own.
#include <dsound.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "base/utf16.h"
#include "platform/MadeOfWaves.h"
#include "platform/SystemSoundOutput.h"

namespace vorlent {
namespace {

template <class Interface>
struct Release {
  void operator()(Interface* object) const { object->Release(); }
};
using Buffer = std::unique_ptr<IDirectSoundBuffer, Release<IDirectSoundBuffer>>;

constexpr WORD Channels = 2;
constexpr WORD BitsPerSample = 16;
constexpr WORD Frame_bytes = Channels * BitsPerSample / 8;

/// What DirectSound knows a device by, and what it calls it.
struct DirectSoundName {
  std::array<std::byte, 16> guid{};
  bool primary = true;  ///< the one that the system prefers, which has no GUID
  std::string description;
};

BOOL CALLBACK collect(GUID* guid, const wchar_t* description, const wchar_t* /*module*/,
                      void* list) noexcept {
  DirectSoundName name;
  static_assert(sizeof *guid == sizeof name.guid);
  name.primary = guid == nullptr;
  if (guid != nullptr) std::memcpy(name.guid.data(), guid, sizeof *guid);
  const std::wstring_view wide = description;
  name.description =
      utf8OfUtf16({reinterpret_cast<const char*>(wide.data()), wide.size() * sizeof(wchar_t)});
  static_cast<std::vector<DirectSoundName>*>(list)->push_back(std::move(name));
  return TRUE;
}

bool fill(IDirectSoundBuffer& buffer, const Wave& wave) {
  void* first = nullptr;
  DWORD first_bytes = 0;
  if (FAILED(buffer.Lock(0, 0, &first, &first_bytes, nullptr, nullptr, DSBLOCK_ENTIREBUFFER)))
    return false;
  const std::size_t size_bytes = wave.samples.size() * sizeof(std::int16_t);
  std::memcpy(first, wave.samples.data(), std::min<std::size_t>(first_bytes, size_bytes));
  buffer.Unlock(first, first_bytes, nullptr, 0);
  return true;
}

/// Nothing when the device does not take it.
Buffer bufferOf(IDirectSound8& device, const Wave& wave) {
  const auto rate_Hz = static_cast<DWORD>(wave.rate_Hz);
  WAVEFORMATEX format{WAVE_FORMAT_PCM, Channels,      rate_Hz, rate_Hz * Frame_bytes,
                      Frame_bytes,     BitsPerSample, 0};
  DSBUFFERDESC description{};
  description.dwSize = sizeof description;
  description.dwFlags =
      DSBCAPS_CTRLVOLUME | DSBCAPS_CTRLPAN | DSBCAPS_CTRLFREQUENCY | DSBCAPS_STATIC;
  description.dwBufferBytes = static_cast<DWORD>(wave.samples.size() * sizeof(std::int16_t));
  description.lpwfxFormat = &format;
  IDirectSoundBuffer* made = nullptr;
  if (FAILED(device.CreateSoundBuffer(&description, &made, nullptr))) return nullptr;
  Buffer buffer(made);
  return fill(*buffer, wave) ? std::move(buffer) : nullptr;
}

/// A wave in a sound buffer that is copied for each voice; the copies share its samples.
struct DirectSoundWave {
  std::shared_ptr<const Wave> wave;
  Buffer original;
};

class DirectSoundVoice : public SoundVoice {
 public:
  DirectSoundVoice(Buffer buffer, std::shared_ptr<DirectSoundWave> wave)
      : wave_(std::move(wave)), buffer_(std::move(buffer)) {}
  ~DirectSoundVoice() override { buffer_->Stop(); }
  DirectSoundVoice(const DirectSoundVoice&) = delete;
  DirectSoundVoice& operator=(const DirectSoundVoice&) = delete;

  void levels(int volume, int pan) override {
    buffer_->SetVolume(volume);
    buffer_->SetPan(pan);
  }
  void start(std::size_t frame, bool looping) override {
    buffer_->SetCurrentPosition(static_cast<DWORD>(frame * Frame_bytes));
    buffer_->Play(0, 0, looping ? DSBPLAY_LOOPING : 0);
  }
  bool playing() override {
    DWORD status = 0;
    return SUCCEEDED(buffer_->GetStatus(&status)) && (status & DSBSTATUS_PLAYING) != 0;
  }
  std::size_t frame() override {
    DWORD at_bytes = 0;
    buffer_->GetCurrentPosition(&at_bytes, nullptr);
    return at_bytes / Frame_bytes;
  }

 private:
  std::shared_ptr<DirectSoundWave> wave_;
  Buffer buffer_;
};

}  // namespace

struct SystemSoundOutput::Library {
  ~Library() { close(); }
  void close() {
    waves.clear();
    if (device != nullptr) device->Release();
    device = nullptr;
  }

  std::vector<DirectSoundName> listed;
  DirectSoundName chosen;
  std::intptr_t window = 0;
  IDirectSound8* device = nullptr;
  MadeOfWaves<DirectSoundWave> waves;
};

SystemSoundOutput::SystemSoundOutput() : library_(std::make_unique<Library>()) {}

SystemSoundOutput::~SystemSoundOutput() = default;

std::vector<std::string> SystemSoundOutput::devices() {
  library_->listed.clear();
  DirectSoundEnumerateW(collect, &library_->listed);
  std::vector<std::string> names;
  for (const DirectSoundName& name : library_->listed) names.push_back(name.description);
  return names;
}

bool SystemSoundOutput::open(std::size_t index, std::intptr_t window) {
  if (index >= library_->listed.size()) return false;
  library_->chosen = library_->listed[index];
  library_->window = window;
  return openAgain();
}

/// The sounds are heard while the simulator's window has the focus; without one, at the desktop's.
bool SystemSoundOutput::openAgain() {
  Library& library = *library_;
  library.close();
  GUID guid{};
  std::memcpy(&guid, library.chosen.guid.data(), sizeof guid);
  if (FAILED(
          DirectSoundCreate8(library.chosen.primary ? nullptr : &guid, &library.device, nullptr))) {
    library.device = nullptr;
    return false;
  }
  auto* const simulator = reinterpret_cast<HWND>(library.window);
  HWND const window = IsWindow(simulator) != 0 ? simulator : GetDesktopWindow();
  if (SUCCEEDED(library.device->SetCooperativeLevel(window, DSSCL_NORMAL))) return true;
  library.close();
  return false;
}

bool SystemSoundOutput::connected() {
  DSCAPS caps{};
  caps.dwSize = sizeof caps;
  return SUCCEEDED(library_->device->GetCaps(&caps));
}

void SystemSoundOutput::close() { library_->close(); }

std::unique_ptr<SoundVoice> SystemSoundOutput::voice(std::shared_ptr<const Wave> wave) {
  IDirectSound8* const device = library_->device;
  if (device == nullptr) return nullptr;
  auto shared = library_->waves.of(wave, [&] {
    return std::make_shared<DirectSoundWave>(DirectSoundWave{wave, bufferOf(*device, *wave)});
  });
  IDirectSoundBuffer* copy = nullptr;
  if (!shared->original || FAILED(device->DuplicateSoundBuffer(shared->original.get(), &copy)))
    return nullptr;
  return std::make_unique<DirectSoundVoice>(Buffer(copy), std::move(shared));
}

}  // namespace vorlent
