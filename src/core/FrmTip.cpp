#include "core/FrmTip.h"

#include "core/Server.h"
#include "platform/Operator.h"

namespace vorlent {

FrmTip::FrmTip(Server& server) : Form("FrmTip"), server_(server) {
  add(Text1);
  add(chkNotShow);
  add(cmdExit);
  cmdExit.onClick([this] { close(); });
}

void FrmTip::showModal(const std::string& caption, const std::string& text, bool offerNotToShow) {
  if (Visible()) return;
  Caption(caption);
  SetTipText(text);
  chkNotShow.Value(0);
  chkNotShow.Visible(offerNotToShow);
  Visible(true);
  server_.failureDomain.showModal(*this);
}

void FrmTip::close() {
  if (!Visible()) return;
  if (chkNotShow.Visible()) server_.store.ShowTipValue = chkNotShow.Value() != 0 ? 0 : 1;
  Visible(false);
  server_.ports.op.hideForm(*this);
}

}  // namespace vorlent
