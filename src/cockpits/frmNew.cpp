#include "cockpits/frmNew.h"

#include "base/files.h"
#include "base/folders.h"
#include "base/text.h"
#include "platform/StatusLine.h"

namespace vorlent {
namespace {

const std::string NameAdvice = "aircraft must match FS aircraft";

}  // namespace

frmNew::frmNew(const CockpitContext& context) : ModalForm("frmNew", context) {
  Caption("New aircraft from template");
  for (Control* control : {static_cast<Control*>(&cboDir), static_cast<Control*>(&Text1),
                           static_cast<Control*>(&cmdOK), static_cast<Control*>(&cmdCancel)})
    add(*control);
  cboDir.ToolTipText(NameAdvice);
  Text1.ToolTipText(NameAdvice);
  cmdOK.onClick([this] { cmdOKClick(); });
  cmdCancel.onClick([this] { close(); });
}

/// Without a template there is nothing to copy.
void frmNew::Form_Load() {
  Text1.Text("");
  cboDir.clear();
  for (const std::string& name : subFolders(context().templates())) cboDir.addItem(name);
  const bool any = !cboDir.Items().empty();
  if (any) cboDir.ListIndex(0);
  cmdOK.Enabled(any);
}

/// No name at all is that of the folder of the cockpits itself, which is there.
void frmNew::cmdOKClick() {
  const std::string name = trimmed(Text1.Text());
  const std::string cockpit = name.empty() ? std::string() : subFolder(context().cockpits(), name);
  if (name.empty() || folderExists(cockpit)) {
    context().tell("This name already exists, please type a new one");
    return;
  }
  make(cockpit, joinedPath(context().templates(), cboDir.Text()));
  // What the closing sets going has words of its own; these come last and stay.
  close();
  context().status.SetStatusText(1, "Aircraft " + name + " made from template " + cboDir.Text());
}

/// In this order: what fails leaves behind what was made before it.
void frmNew::make(const std::string& cockpit, const std::string& from) const {
  makeFolder(cockpit);
  for (const char* folder : {"sound", "stick"}) makeFolder(joinedPath(cockpit, folder));
  for (const char* file : {"Flaps.cfg", "sound.cfg"})
    copyFile(joinedPath(from, file), joinedPath(cockpit, file));
  for (const char* folder : {"sound", "stick"})
    copyFiles(joinedPath(from, folder), joinedPath(cockpit, folder));
}

}  // namespace vorlent
