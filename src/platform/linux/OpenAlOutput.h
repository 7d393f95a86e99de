#pragma once

#include <AL/al.h>
#include <AL/alc.h>

#include <string>
#include <vector>

#include "platform/MadeOfWaves.h"
#include "platform/SystemSoundOutput.h"

namespace vorlent {

/// A wave in the sound library's hands: the left channel and the right one, each a stereo buffer
/// whose other channel is silent.
struct OpenAlWave;

/// OpenAL Soft. A voice is two sources, one a channel, each with its own gain; each goes straight
/// to its loudspeaker, past what would place it in the room.
struct SystemSoundOutput::Library {
  Library() = default;
  virtual ~Library() { close(); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  /// The device of this name and what its context asks of it; the tests have one of their own.
  virtual ALCdevice* openDevice(const std::string& wanted) { return alcOpenDevice(wanted.c_str()); }
  virtual const ALCint* contextAttributes() const { return nullptr; }
  void close();

  std::vector<std::string> names;  ///< of the devices that were listed last
  std::string name;                ///< of the one that was opened last
  ALCdevice* device = nullptr;
  ALCcontext* context = nullptr;
  MadeOfWaves<OpenAlWave> waves;
};

}  // namespace vorlent
