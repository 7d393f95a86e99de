#include "cockpits/frmSave.h"

#include "base/files.h"
#include "base/folders.h"
#include "base/text.h"
#include "platform/StatusLine.h"

namespace vorlent {

frmSave::frmSave(const CockpitContext& context, std::function<std::string()> cockpit)
    : ModalForm("frmSave", context), cockpit_(std::move(cockpit)) {
  Caption("Name of template to save to:");
  add(Text1);
  add(cmdOK);
  add(cmdCancel);
  Text1.ToolTipText("New name");
  cmdOK.onClick([this] { cmdOKClick(); });
  cmdCancel.onClick([this] { close(); });
}

/// Blanks around the name are dropped, as not every system keeps them.
void frmSave::cmdOKClick() {
  const std::string name = trimmed(Text1.Text());
  const std::string kept = name.empty() ? std::string() : subFolder(context().templates(), name);
  if (name.empty() || folderExists(kept)) {
    context().tell("Template name already exists, please try another");
    return;
  }
  if (!folderExists(context().templates())) makeFolder(context().templates());
  copyFolder(joinedPath(context().cockpits(), cockpit_()), kept);
  context().status.SetStatusText(1, "Aircraft " + cockpit_() + " saved as template " + name);
  close();
}

}  // namespace vorlent
