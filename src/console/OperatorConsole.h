#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "console/ConsoleOutput.h"

namespace vorlent {

class Form;

/// The operator's hand where there are no windows: commands, a line each, on the models of forms.
///
///     press frmMainClient.cmdStop        a button, a menu entry, an option; turns a check box over
///     press frmMainClient.mnuNetwork(1)
///     set frmMainClient.txtPoll 50       a text, which is then left; 0, 1, True or False
///     select frmMainClient.cboDir 737-700
///     focus frmCStick(0).txtKeyA         moves to the control
///     key frmCStick(0).txtKeyA 65 2      a virtual key code; 1 Shift, 2 Ctrl and 4 Alt in a sum
///     drag frmXY.Pic1 33 33 50 20        with the left button, in percent of what is painted
///     get frmMainClient.txtIP            what the control holds
///     get frmMainClient.txtIP.Enabled    one of its properties (base/controlProperties.h)
///     list frmMainClient                 names of the controls
///     close FrmTip                       as its close box
///     exit                               the exit button of the main form
///     help                               all commands
///
/// Each is answered by one line: `=`, for `get`, `list` and `help` followed by a blank and the
/// value, or `error: ` and what is wrong; a wrong command changes nothing. Names go in any case of
/// letters. A control that is disabled or not visible cannot be worked; one that is worked has the
/// focus then, and the one before it is left.
///
/// Status panels are told as `1| text` and `2| text` whenever a text is put there.
class OperatorConsole {
 public:
  /// Those forms that are there at the moment.
  using FormsNow = std::function<std::vector<Form*>()>;

  /// The forms live as long as the console does, the output as long as the forms. `others` are
  /// forms that come and go.
  OperatorConsole(ConsoleOutput& output, std::vector<Form*> forms, FormsNow others = nullptr);

  /// What a control's handler raises goes through, after the answer.
  void execute(std::string_view commandLine);

 private:
  void tellStatusPanels(const Form& form);
  std::vector<Form*> formsNow() const;

  ConsoleOutput& output_;
  std::vector<Form*> forms_;
  FormsNow others_;
};

}  // namespace vorlent
