#pragma once

#include <optional>
#include <string>

namespace vorlent {

class frmMainClient;
struct Server;

/// The main window's part that reads and writes the settings: Vorlent.ini, the cockpits' folder,
/// the share, the sessions that the settings ask for.
class Configuration {
 public:
  Configuration(Server& server, frmMainClient& form) : server_(server), form_(form) {}

  /// Reads Vorlent.ini and sound.cfg and makes the sessions. Any fault in it is told on the status
  /// line with its place, shows "Initialization error" and ends the process.
  void Init();
  /// Writes Vorlent.ini in one piece. Raises TypeMismatch or Overflow for a box that holds no
  /// number, after everything else has been written; that box's key keeps its old value.
  void SaveCFG();
  /// Lists the cockpits that are there now, with the same one selected.
  void refillDirlist();
  /// What is selected changes because it is read, not because somebody selects.
  /// On the status line, once.
  void tellMissingCockpit();
  bool initialising() const { return initialising_; }

 private:
  void FillDirlist();
  void expectSettings() const;
  void readSettings();
  void readSounds();
  void makeSessions();
  void checkShare();
  void findCockpit();

  Server& server_;
  frmMainClient& form_;
  bool initialising_ = false;
  std::optional<std::string> missingCockpit_;  ///< that the file names
};

}  // namespace vorlent
