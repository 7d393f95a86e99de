#include "cockpits/frmZip.h"

#include <initializer_list>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "base/folders.h"
#include "base/text.h"
#include "platform/FailureDomain.h"
#include "platform/FileChooser.h"
#include "platform/StatusLine.h"
#include "platform/ZipFiles.h"

namespace vorlent {
namespace {

/// What stands behind the last separator, without ".zip".
std::string nameOf(const std::string& zip) {
  std::string name = zip.substr(zip.find_last_of("\\/") + 1);
  if (name.size() > 4 && equalIgnoringCase(name.substr(name.size() - 4), ".zip"))
    name.resize(name.size() - 4);
  return name;
}

/// A zip that was made of a folder, not of what is in it, holds that folder alone.
std::string cockpitIn(const std::string& folder) {
  const auto folders = subFolders(folder);
  return filesIn(folder).empty() && folders.size() == 1 ? joinedPath(folder, folders.front())
                                                        : folder;
}

/// What keeps the folder from being a cockpit's; empty when nothing does.
std::string lack(const std::string& folder) {
  for (const char* file : {"sound.cfg", "Flaps.cfg"})
    if (!fileExists(joinedPath(folder, file)))
      return std::string("This zip file holds no cockpit: there is no ") + file + " in it";
  return {};
}

}  // namespace

frmZip::frmZip(const CockpitContext& context) : ModalForm("frmZip", context) {
  for (Control* control :
       std::initializer_list<Control*>{&txtFile, &cmdBrowse, &txtName, &cmdOK, &cmdCancel})
    add(*control);
  txtFile.ToolTipText("The zip file, with its folder");
  txtName.ToolTipText("aircraft must match FS aircraft");
  txtFile.onLostFocus([this] { suggestName(); });
  cmdBrowse.onClick([this] { cmdBrowseClick(); });
  cmdOK.onClick([this] { cmdOKClick(); });
  cmdCancel.onClick([this] { close(); });
}

void frmZip::showExport(const std::string& cockpit) {
  if (Visible()) return;
  exported_ = cockpit;
  showModal();
}

void frmZip::showImport() {
  if (Visible()) return;
  exported_.clear();
  showModal();
}

void frmZip::Form_Load() {
  const bool exports = !exported_.empty();
  Caption(exports ? "Export cockpit " + exported_ : "Import cockpit");
  txtFile.Text(exports ? nativePath(joinedPath(context().programFolder, exported_ + ".zip")) : "");
  txtName.Text("");
  txtName.Visible(!exports);
}

void frmZip::cmdBrowseClick() {
  FileChooser& chooser = context().chooser;
  const std::string start = txtFile.Text().empty() ? context().programFolder : txtFile.Text();
  const auto zip = exported_.empty() ? chooser.zipToRead(start) : chooser.zipToMake(start);
  if (!zip) return;
  txtFile.Text(*zip);
  suggestName();
}

void frmZip::suggestName() {
  if (txtName.Text().empty()) txtName.Text(nameOf(trimmed(txtFile.Text())));
}

void frmZip::cmdOKClick() {
  const std::string zip = trimmed(txtFile.Text());
  if (zip.empty())
    context().tell("Please type the name of the zip file");
  else if (exported_.empty())
    importFrom(zip);
  else
    exportTo(zip);
}

void frmZip::exportTo(const std::string& zip) {
  if (fileExists(zip) || folderExists(zip)) {
    context().tell("This file already exists, please type a new name");
    return;
  }
  context().status.SetStatusText(1, "Exporting " + exported_);
  const auto done = [this, cockpit = exported_, zip](const std::string& fault) {
    if (fault.empty())
      context().status.SetStatusText(1, "Cockpit " + cockpit + " exported to " + zip);
    else
      context().tell("Cockpit " + cockpit + " is not exported\n" + fault);
  };
  cmdOK.Enabled(false);
  context().zipFiles.pack(joinedPath(context().cockpits(), exported_), zip,
                          [this, done](const std::string& fault) {
                            cmdOK.Enabled(true);
                            context().failureDomain.run([&] { done(fault); });
                          });
  close();
}

/// Beside the cockpits, so that a half unpacked one is never among them.
std::string frmZip::unpacked() const { return joinedPath(context().programFolder, "import.tmp"); }

void frmZip::importFrom(const std::string& zip) {
  const std::string name = trimmed(txtName.Text());
  if (!fileExists(zip)) {
    context().tell("There is no file " + zip);
  } else if (!isFolderName(name)) {
    context().tell("\"" + name + "\" cannot be an aircraft's name, please type another one");
  } else if (folderExists(joinedPath(context().cockpits(), name))) {
    context().tell("This name already exists, please type a new one");
  } else {
    unpack(zip, name);
    close();
  }
}

void frmZip::unpack(const std::string& zip, const std::string& name) {
  context().status.SetStatusText(1, "Importing " + name);
  cmdOK.Enabled(false);
  deleteFolder(unpacked());
  context().zipFiles.unpack(zip, unpacked(), [this, name](const std::string& fault) {
    cmdOK.Enabled(true);
    context().failureDomain.run([&] { take(name, fault); });
  });
}

void frmZip::take(const std::string& name, std::string fault) {
  try {
    const std::string folder = cockpitIn(unpacked());
    if (fault.empty()) fault = lack(folder);
    if (fault.empty()) moveFolder(folder, subFolder(context().cockpits(), name));
    deleteFolder(unpacked());
  } catch (const RuntimeError& error) {
    fault = error.description();
  }
  if (!fault.empty()) {
    context().tell("Cockpit " + name + " is not imported\n" + fault);
    return;
  }
  context().status.SetStatusText(1, "Cockpit " + name + " imported");
  if (imported_) imported_();
}

}  // namespace vorlent
