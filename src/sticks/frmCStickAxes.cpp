#include <string>

#include "base/text.h"
#include "platform/FailureDomain.h"
#include "sticks/Sticks.h"
#include "sticks/frmCStick.h"
#include "sticks/frmXY.h"
#include "sticks/rowAssignment.h"
#include "sticks/stickFile.h"

namespace vorlent {
namespace {

constexpr auto NoKeyOfAnAxis =
    "An axis sends no key, and does nothing with one: choose a command for it";

}  // namespace

void frmCStick::wireAxes() {
  for (int i = 0; i < Axes; ++i) {
    keepNumber(txtNull(i), "0");
    keepNumber(txtAccA(i), "1");
    optAxes(i).Value.onChange([this, i] {
      if (optAxes(i).Value()) selectAxis(i);
    });
  }
  for (ComboBox* box : {&cboAxes, &cboACoder})
    box->ListIndex.onChange([this, box] { takeAxis(*box); });
  chkKeyA.Value.onChange([this] { chkKeyAClick(); });
  cmdCoderAxis.onClick([this] { cmdCoderAxisClick(); });
  cmdSens.onClick([this] { cmdSensClick(); });
}

int frmCStick::selectedAxis() const { return selectedOf(optAxes); }

void frmCStick::selectAxis(int axis) {
  selectOnly(optAxes, axis);
  ChannelID(static_cast<std::int16_t>(axis));
  lblAxisName.Caption(optAxes(axis).Caption());
  showAxis(axis);
}

/// A key is shown for an encoder alone.
void frmCStick::showAxis(int axis) {
  const OptionButton& row = optAxes(axis);
  showAssigned(cboAxes, row);
  showAssigned(cboACoder, row);
  const bool encoder = chkDamp(axis).Tag() != "0";
  const bool key = encoder && cboACoder.ListIndex() < 0 && isKeystroke(row);
  showKeyA(key, keyLabelOf(row));
  tellKeyOf(axis);
}

/// Only an encoder's key is sent.
void frmCStick::tellKeyOf(int axis) {
  const bool lost = AxisMode_ == 0 && isKeystroke(optAxes(axis));
  lblKeyA.Caption(lost ? NoKeyOfAnAxis : "");
}

void frmCStick::showKeyA(bool checked, const std::string& assigned) {
  chkKeyA.Value.setQuietly(checked ? 1 : 0);
  txtKeyA.Enabled(checked);
  txtKeyA.Text(checked ? assigned : "");
  cboAxes.Visible(!checked && AxisMode_ == 0);
  cboACoder.Visible(!checked && AxisMode_ == 1);
}

/// The operator turns from a key back to the catalogue: its first entry is assigned.
void frmCStick::chkKeyAClick() {
  const int axis = selectedAxis();
  showKeyA(chkKeyA.Value() == 1, keyLabelOf(optAxes(axis)));
  if (chkKeyA.Value() == 1) return;
  takeFirst(AxisMode_ == 1 ? cboACoder : cboAxes, optAxes(axis));
  tellKeyOf(axis);
}

void frmCStick::takeAxis(const ComboBox& box) {
  takeAssigned(box, optAxes(selectedAxis()));
  tellKeyOf(selectedAxis());
}

void frmCStick::captureAxis(std::int16_t code, const std::string& label) {
  optAxes(selectedAxis()).Tag(std::to_string(code));
  txtKeyA.Text(label);
  tellKeyOf(selectedAxis());
}

void frmCStick::SetAxisCoderState() {
  const bool encoders = assignedCode(chkDamp(3)) == 1;
  AxisMode_ = encoders ? 1 : 0;
  for (int i = 0; i < Axes; ++i) {
    const bool first = i % 2 == 0;
    const bool row = first || !encoders;
    optAxes(i).Caption(encoders && first ? "Encoder " + std::to_string(i / 2 + 1) : axisLabel(i));
    for (Control* control :
         std::initializer_list<Control*>{&optAxes(i), &txtValue(i), &lblSentA(i), &lblAnswerA(i)})
      control->Visible(row);
    for (Control* control :
         std::initializer_list<Control*>{&txtNull(i), &chkDamp(i), &chkInvert(i)})
      control->Visible(!encoders);
    txtAccA(i).Visible(encoders && first);
    shpAxis(i).Visible(encoders && first);
  }
  for (Control* control : std::initializer_list<Control*>{&cmdSens, &lblNull, &lblDamp, &lblInv})
    control->Visible(!encoders);
  for (Control* control : std::initializer_list<Control*>{&cboEncA(0), &cboEncA(1), &lblAccA})
    control->Visible(encoders);
  lblValue.Caption(encoders ? "Active" : "Value");
  cmdCoderAxis.Caption(encoders ? "Axes..." : "Encoder...");
  cboACoder.Visible(encoders);
  cboAxes.Visible(!encoders);
}

void frmCStick::cmdCoderAxisClick() {
  for (int i = 0; i < Axes; ++i) chkDamp(i).Tag(chkDamp(i).Tag() == "1" ? "0" : "1");
  SetAxisCoderState();
  // The first row is selected anew, so that it shows what it has.
  optAxes(1).Value(true);
  optAxes(0).Value(true);
}

void frmCStick::cmdSensClick() {
  sticks_.XY->InitForStick(MyID_, int16Of(txtValue(selectedAxis()).Text()));
  sticks_.XY->Visible(true);
  sticks_.context.failureDomain.showModal(*sticks_.XY);
}

}  // namespace vorlent
