#pragma once

#include <memory>

#include "simlink/Accessors.h"

namespace vorlent {

class FailureDomain;
class Operator;
class SoundDevice;
class StatusLine;
class clsSound;
struct SoundSettings;
struct modPublic;

/// What the sounds ask of the server's roof.
class SoundHost {
 public:
  virtual ~SoundHost() = default;
  virtual bool AnyClientUp() const = 0;
  /// The menu's "&Enable acft sound".
  virtual bool acftSoundEnabled() const = 0;
  /// As a click on it would, where it stands otherwise.
  virtual void enableAcftSound(bool enabled) = 0;
};

/// What the sounds stand on.
struct SoundContext {
  SoundDevice& device;
  Operator& op;
  StatusLine& status;
  FailureDomain& failureDomain;
  modPublic& store;
  SoundSettings& settings;
  const Accessors& accessors;
  SoundHost& host;
  std::unique_ptr<clsSound>& sound;  ///< made at its first use
};

}  // namespace vorlent
