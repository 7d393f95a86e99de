#include "sticks/frmCMore.h"

#include <string>

#include "commands/Keystrokes.h"
#include "platform/Operator.h"
#include "sticks/Sticks.h"
#include "sticks/catalogues.h"
#include "sticks/rowAssignment.h"

namespace vorlent {
namespace {

constexpr int FirstButton = 5;

}  // namespace

frmCMore::frmCMore(Sticks& sticks, std::int16_t stick)
    : Form("frmCMore(" + std::to_string(stick) + ")"), sticks_(sticks), MyID_(stick) {
  Caption("Assign additional buttons");
  addControls();
  wireControls();
  loadCatalogue(sticks.context, "butsort.txt", HashRows::Skipped, {&cboButtons});
}

frmCMore::~frmCMore() { View.reset(); }

void frmCMore::addControls() {
  for (int i = 0; i < Buttons; ++i) {
    optSwitches(i).Caption("Button " + std::to_string(i + FirstButton));
    optSwitches(i).Tag("0");
    for (Control* control :
         std::initializer_list<Control*>{&optSwitches(i), &shpOnOff(i), &lblSent(i), &lblAnswer(i)})
      add(*control);
  }
  for (Control* control :
       std::initializer_list<Control*>{&cboButtons, &chkKeyBtn, &txtKeyBtn, &cmdOK, &cmdCancel})
    add(*control);
  txtKeyBtn.Enabled(false);
  txtKeyBtn.ToolTipText("Press the key that is to be sent");
}

void frmCMore::wireControls() {
  for (int i = 0; i < Buttons; ++i)
    optSwitches(i).Value.onChange([this, i] {
      if (optSwitches(i).Value()) selectRow(i);
    });
  cboButtons.ListIndex.onChange([this] { takeAssigned(cboButtons, selectedRow()); });
  chkKeyBtn.Value.onChange([this] { chkKeyBtnClick(); });
  wireKeyBox(txtKeyBtn, txtKeyBtn, *this);
  for (Button* button : {&cmdOK, &cmdCancel}) button->onClick([this] { close(); });
  Visible.onChange([this] { shown(); });
}

/// The first row is selected where none has been, and what a row has may have come from a file.
void frmCMore::shown() {
  if (!Visible()) {
    if (Control* active = ActiveControl()) active->loseFocus();
    return;
  }
  const int row = selectedOf(optSwitches);
  optSwitches(row).Value.setQuietly(true);
  selectRow(row);
}

OptionButton& frmCMore::selectedRow() { return optSwitches(selectedOf(optSwitches)); }

void frmCMore::selectRow(int row) {
  selectOnly(optSwitches, row);
  showAssigned(cboButtons, optSwitches(row));
  showKey(isKeystroke(optSwitches(row)));
}

void frmCMore::showKey(bool checked) {
  chkKeyBtn.Value.setQuietly(checked ? 1 : 0);
  txtKeyBtn.Enabled(checked);
  txtKeyBtn.Text(checked ? keyLabelOf(selectedRow()) : "");
  cboButtons.Visible(!checked);
}

/// The operator turns from a key back to the catalogue: its first entry is assigned.
void frmCMore::chkKeyBtnClick() {
  showKey(chkKeyBtn.Value() == 1);
  if (chkKeyBtn.Value() == 0) takeFirst(cboButtons, selectedRow());
}

void frmCMore::Form_KeyDown(int keyCode, int shift) {
  const std::int16_t code = keystrokeCode(keyCode, shift);
  selectedRow().Tag(std::to_string(code));
  txtKeyBtn.Text(KeyLabel(code));
}

void frmCMore::close() {
  if (!Visible()) return;
  Visible(false);
  sticks_.context.op.hideForm(*this);
}

}  // namespace vorlent
