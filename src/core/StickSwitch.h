#pragma once

#include <cstdint>

namespace vorlent {

class frmMainClient;
struct Server;

/// The main window's part that makes, shows and releases the sticks.
class StickSwitch {
 public:
  StickSwitch(Server& server, frmMainClient& form) : server_(server), form_(form) {}

  /// Builds all sticks that a board is there for. Clears the stick box when there is none; ends the
  /// process where a stick's file or a catalogue is missing.
  void InitJoystick();
  /// Puts the stick box to the configured state and runs its handler, also when it has that state.
  void SetChkStickValue();
  /// The stick box has been clicked.
  void switchSticks();
  /// The button for the chosen stick's window has been pressed.
  void showStick();
  /// The box for the number of sticks has changed.
  void limitCount();

 private:
  void makeStick(std::int16_t stick);
  void fillStickList(int count);

  Server& server_;
  frmMainClient& form_;
};

}  // namespace vorlent
