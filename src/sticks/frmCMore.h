#pragma once

#include <cstdint>

#include "base/ControlArray.h"
#include "base/controls.h"

namespace vorlent {

struct Sticks;

/// The buttons 5 to 15 of a stick, all of them push buttons: the store of their assignments. A row
/// shows and takes its assignment as those of frmCStick do.
class frmCMore : public Form {
 public:
  static constexpr int Buttons = 11;

  /// Reads the buttons' catalogue; ends the process where it is missing.
  frmCMore(Sticks& sticks, std::int16_t stick);
  ~frmCMore() override;

  /// The stick that the buttons are of, 0..8.
  std::int16_t MyID() const { return MyID_; }
  /// Goes out of sight; what is assigned stays, and reaches the file with the stick's own.
  void close() override;

  /// The Tag is the assigned code as text.
  ControlArray<OptionButton> optSwitches{"optSwitches", Buttons, ""};
  ControlArray<Shape> shpOnOff{"shpOnOff", Buttons};
  ControlArray<Label> lblSent{"lblSent", Buttons};      ///< "P 169 1"
  ControlArray<Label> lblAnswer{"lblAnswer", Buttons};  ///< what the simulator holds since
  ComboBox cboButtons{"cboButtons"};
  CheckBox chkKeyBtn{"chkKeyBtn", "Send Key"};
  TextBox txtKeyBtn{"txtKeyBtn"};
  Button cmdOK{"cmdOK", "OK"};
  Button cmdCancel{"cmdCancel", "Cancel"};

 protected:
  void Form_KeyDown(int keyCode, int shift) override;

 private:
  void addControls();
  void wireControls();
  OptionButton& selectedRow();
  void selectRow(int row);
  void showKey(bool checked);
  void chkKeyBtnClick();
  void shown();

  Sticks& sticks_;
  std::int16_t MyID_;
};

}  // namespace vorlent
