#include "input/frmCMore.h"

#include <string>

#include "core/Server.h"
#include "input/catalogues.h"
#include "platform/Operator.h"

namespace vorlent {
namespace {

constexpr int FirstButton = 5;

}  // namespace

frmCMore::frmCMore(Server& server, std::int16_t stick)
    : Form("frmCMore(" + std::to_string(stick) + ")"), server_(server), MyID_(stick) {
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
  loadCatalogue(server, "butsort.txt", HashRows::Skipped, {&cboButtons});
}

void frmCMore::close() {
  if (!Visible()) return;
  Visible(false);
  server_.ports.op.hideForm(*this);
}

}  // namespace vorlent
