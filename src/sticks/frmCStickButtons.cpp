#include <string>

#include "platform/Operator.h"
#include "sticks/Sticks.h"
#include "sticks/frmCStick.h"
#include "sticks/rowAssignment.h"

namespace vorlent {
namespace {

constexpr auto NoKeyOfASwitch = ": a switch sends no key. It does what is chosen for it now";

}  // namespace

void frmCStick::wireButtons() {
  for (int i = 0; i < Lines; ++i) {
    keepNumber(txtAccBtn(i), "1");
    optSwitches(i).Value.onChange([this, i] {
      if (optSwitches(i).Value()) selectLine(i);
    });
    OnOff(i).Value.onChange([this, i] {
      if (Initialised_) OnOffClick(i);
    });
  }
  for (ComboBox* box : {&cboSwitches, &cboButtons, &cboCoder})
    box->ListIndex.onChange([this, box] { takeLine(*box); });
  chkKeyBtn.Value.onChange([this] { chkKeyBtnClick(); });
  cmdCoderBtn.onClick([this] { cmdCoderBtnClick(); });
}

int frmCStick::selectedLine() const { return selectedOf(optSwitches); }

void frmCStick::selectLine(int line) {
  selectOnly(optSwitches, line);
  showLine(line);
}

ComboBox& frmCStick::catalogueOf(int line) {
  const std::string& kind = OnOff(line).Tag();
  if (kind == "1") return cboSwitches;
  return kind == "2" ? cboCoder : cboButtons;
}

void frmCStick::showLine(int line) {
  const OptionButton& row = optSwitches(line);
  for (ComboBox* box : {&cboSwitches, &cboButtons, &cboCoder}) showAssigned(*box, row);
  showKeyBtn(OnOff(line).Tag() != "1" && isKeystroke(row), line);
  lblKeyBtn.Caption("");
}

/// The box for a key stays within reach of a switch, so that the refusal is told.
void frmCStick::showKeyBtn(bool checked, int line) {
  const bool isSwitch = OnOff(line).Tag() == "1";
  chkKeyBtn.Value.setQuietly(checked ? 1 : 0);
  chkKeyBtn.Visible(!isSwitch);
  txtKeyBtn.Enabled(checked || isSwitch);
  txtKeyBtn.Text(checked ? keyLabelOf(optSwitches(line)) : "");
  for (ComboBox* box : {&cboSwitches, &cboButtons, &cboCoder})
    box->Visible(!checked && box == &catalogueOf(line));
}

/// As chkKeyAClick.
void frmCStick::chkKeyBtnClick() {
  const int line = selectedLine();
  showKeyBtn(chkKeyBtn.Value() == 1, line);
  if (chkKeyBtn.Value() == 1) return;
  takeFirst(catalogueOf(line), optSwitches(line));
}

void frmCStick::takeLine(const ComboBox& box) { takeAssigned(box, optSwitches(selectedLine())); }

void frmCStick::captureLine(std::int16_t code, const std::string& label) {
  const int line = selectedLine();
  if (OnOff(line).Tag() == "1")
    sticks_.context.op.messageBox("Switches are not allowed to have keystrokes assigned!",
                                  BoxIcon::Plain, "Vorlent");
  else
    optSwitches(line).Tag(std::to_string(code));
  txtKeyBtn.Text(label);
}

/// A switch has no key: its first entry takes the place of one.
void frmCStick::OnOffClick(int line) {
  const bool isSwitch = OnOff(line).Value() == 1;
  OnOff(line).Tag(isSwitch ? "1" : "0");
  const bool keyGoes = isSwitch && isKeystroke(optSwitches(line));
  if (keyGoes) assignFirst(cboSwitches, optSwitches(line));
  if (line == selectedLine()) showLine(line);
  if (keyGoes) lblKeyBtn.Caption(optSwitches(line).Caption() + NoKeyOfASwitch);
  setLineMode();
}

int frmCStick::switchCount() const {
  int sum = 0;
  for (int i = 0; i < Lines; ++i) sum += OnOff(i).Value();
  return sum;
}

void frmCStick::setLineMode() {
  BtnMode_ = switchCount() < 1 ? 1 : 0;
  cmdMore.Enabled(BtnMode_ == 1);
}

void frmCStick::SetBtnCoderState() {
  const bool encoders = assignedCode(OnOff(3)) == 2;
  for (int i = 0; i < Lines; ++i) {
    const bool first = i % 2 == 0;
    const bool row = first || !encoders;
    optSwitches(i).Caption(encoders && first ? "Encoder " + std::to_string(i / 2 + 1)
                                             : "Button " + std::to_string(i + 1));
    for (Control* control : std::initializer_list<Control*>{&optSwitches(i), &shpOnOff(i),
                                                            &lblSentBtn(i), &lblAnswerBtn(i)})
      control->Visible(row);
    OnOff(i).Visible(!encoders);
    txtAccBtn(i).Visible(encoders && first);
  }
  for (Control* control : std::initializer_list<Control*>{&cboEncBtn(0), &cboEncBtn(1), &lblAccBtn})
    control->Visible(encoders);
  cboCoder.Visible(encoders);
  cmdCoderBtn.Caption(encoders ? "Buttons..." : "Encoder...");
  setLineMode();
  if (!encoders) return;
  BtnMode_ = 2;
  cmdMore.Enabled(false);
}

void frmCStick::cmdCoderBtnClick() {
  for (int i = 0; i < Lines; ++i) {
    OnOff(i).Tag(OnOff(i).Tag() == "2" ? "0" : "2");
    OnOff(i).Value.setQuietly(0);
  }
  SetBtnCoderState();
  // The first row is selected anew, so that it shows what it has.
  optSwitches(1).Value(true);
  optSwitches(0).Value(true);
}

}  // namespace vorlent
