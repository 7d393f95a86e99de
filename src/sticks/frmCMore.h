#pragma once

#include <cstdint>

#include "base/ControlArray.h"
#include "base/controls.h"

namespace vorlent {

struct Sticks;

/// The buttons 5 to 15 of a stick, all of them push buttons: the store of their assignments.
class frmCMore : public Form {
 public:
  static constexpr int Buttons = 11;

  /// Reads the buttons' catalogue; ends the process where it is missing.
  frmCMore(Sticks& sticks, std::int16_t stick);

  /// The stick that the buttons are of, 0..8.
  std::int16_t MyID() const { return MyID_; }
  /// Goes out of sight; what is assigned stays, and reaches the file with the stick's own.
  void close() override;

  /// The Tag is the assigned code as text.
  ControlArray<OptionButton> optSwitches{"optSwitches", Buttons, ""};
  ControlArray<Shape> shpOnOff{"shpOnOff", Buttons};
  ComboBox cboButtons{"cboButtons"};
  Button cmdOK{"cmdOK", "OK"};
  Button cmdCancel{"cmdCancel", "Cancel"};

 private:
  Sticks& sticks_;
  std::int16_t MyID_;
};

}  // namespace vorlent
