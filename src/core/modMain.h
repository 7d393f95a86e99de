#pragma once

#include <optional>
#include <string>

#include "autoflight/Autoflight.h"
#include "clientlink/SessionContext.h"
#include "extras/SoundContext.h"

namespace vorlent {

struct Server;

/// The process's entry and the routines that belong to no form.
class modMain : public AutoflightHost, public SessionHost, public SoundHost {
 public:
  explicit modMain(Server& server) : server_(server) {}

  /// Everything up to the running program: checks, then the main window's load.
  void Main();
  void StartSimLink();
  void PollDispatch() override;
  void CycleCallback();
  /// Shows a box, kills the cycle timer and returns true when the live sessions do not agree on the
  /// FMC's name; otherwise the main window takes the name that they agree on.
  bool CheckMasterConflict();
  std::optional<std::string> firstClient() const override;
  bool acftSoundEnabled() const override;
  void enableAcftSound(bool enabled) override;
  bool AnyClientUp() const override;
  void clientGreeted() override;
  void bringUpServer() override;
  void startPollTimer() override;
  std::string cockpit() const override;

  enum class Access { Read, Write };
  /// Write: makes test.txt in the folder `path`, reads it back and deletes it. Read: opens the file
  /// `path`. A failure tells the operator and ends the process.
  void TestFileAccess(const std::string& path, Access access);

 private:
  void checkSystemFiles();
  void setPanelWords();
  void readOffsets();
  void waitForSimulator();
  void startXPlane();
  void startFlightSimulator();
  void readFlapIncrement();
  void fillTankBoxes();
  void setEnginePans();

  Server& server_;
};

}  // namespace vorlent
