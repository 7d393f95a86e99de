#include "sticks/frmCMore.h"

#include <string>

#include "platform/Operator.h"
#include "sticks/Sticks.h"
#include "sticks/catalogues.h"

namespace vorlent {
namespace {

constexpr int FirstButton = 5;

}  // namespace

frmCMore::frmCMore(Sticks& sticks, std::int16_t stick)
    : Form("frmCMore(" + std::to_string(stick) + ")"), sticks_(sticks), MyID_(stick) {
  Caption("Assign additional buttons");
  for (int i = 0; i < Buttons; ++i) {
    optSwitches(i).Caption("Button " + std::to_string(i + FirstButton));
    optSwitches(i).Tag("0");
    add(optSwitches(i));
    add(shpOnOff(i));
  }
  add(cboButtons);
  add(cmdOK);
  add(cmdCancel);
  for (Button* button : {&cmdOK, &cmdCancel}) button->onClick([this] { close(); });
  loadCatalogue(sticks.context, "butsort.txt", HashRows::Skipped, {&cboButtons});
}

void frmCMore::close() {
  if (!Visible()) return;
  Visible(false);
  sticks_.context.op.hideForm(*this);
}

}  // namespace vorlent
