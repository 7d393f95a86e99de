#pragma once

#include <memory>
#include <optional>
#include <string>

#include "autoflight/Annunciators.h"

namespace vorlent {

class clsAfds;
class clsXAutoP;
class clsXAutoT;
class NetworkFiles;
class PerformanceDb;
class StatusLine;
struct Accessors;
struct modPublic;

/// What the autoflight asks of the server around it.
class AutoflightHost {
 public:
  virtual ~AutoflightHost() = default;
  /// Polls the simulator now.
  virtual void PollDispatch() = 0;
  /// The address that greeted on the first port, empty before; nothing when there are no sessions.
  virtual std::optional<std::string> firstClient() const = 0;
  /// The entry "&Enable acft sound" of the menu "Settings" is checked.
  virtual bool acftSoundEnabled() const = 0;
};

/// The autoflight as a whole: what it stands on, and its three classes, which know each other and
/// write the same annunciators.
struct Autoflight {
  Autoflight(modPublic& store, Accessors& accessors, NetworkFiles& networkFiles,
             PerformanceDb& performanceDb, StatusLine& status, AutoflightHost& host);
  ~Autoflight();

  /// Makes the three classes anew, with the values that they start with, and blanks the
  /// annunciators.
  void make();

  modPublic& store;
  Accessors& accessors;
  NetworkFiles& networkFiles;
  PerformanceDb& performanceDb;
  StatusLine& status;
  AutoflightHost& host;
  bool Glideslope = false;  ///< the glide path is flown; without it only the mode is shown

  Annunciators annunciators;
  std::unique_ptr<clsXAutoP> xAutoP;
  std::unique_ptr<clsXAutoT> xAutoT;
  std::unique_ptr<clsAfds> afds;
};

}  // namespace vorlent
