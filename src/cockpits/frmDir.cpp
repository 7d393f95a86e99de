#include "cockpits/frmDir.h"

#include <initializer_list>

#include "base/files.h"
#include "base/folders.h"
#include "base/text.h"
#include "platform/FileChooser.h"
#include "platform/StatusLine.h"

namespace vorlent {
namespace {

const std::string Up = "..";

/// One spelling for each path, without a separator at its end.
std::string spelled(std::string_view path) {
  std::string text = upperCase(replaced(path, "\\", "/"));
  while (text.size() > 1 && text.back() == '/') text.pop_back();
  return text;
}

bool endsInSeparator(std::string_view path) { return path.ends_with('/') || path.ends_with('\\'); }

/// The root of a disk is told from the disk by the separator at its end.
bool isRoot(std::string_view path) {
  return path.size() == 1 || path.substr(0, path.size() - 1).ends_with(':');
}

/// The one above; a root is its own.
std::string above(const std::string& folder) {
  return folder.substr(0, folder.find_last_of("\\/") + 1);
}

std::string withoutEnd(std::string folder) {
  while (endsInSeparator(folder) && !isRoot(folder)) folder.pop_back();
  return folder;
}

}  // namespace

frmDir::frmDir(const CockpitContext& context) : ModalForm("frmDir", context) {
  Caption("Import 6.x panels");
  for (Control* control : std::initializer_list<Control*>{&drvDrive1, &txtPath, &cmdBrowse,
                                                          &dirList1, &cmdOK, &cmdCancel})
    add(*control);
  txtPath.ToolTipText("The folder of the old Vorlent, in which its Cockpits are");
  txtPath.rule([](const std::string& path) -> std::string {
    return folderExists(path) ? "" : "There is no such folder";
  });
  drvDrive1.ListIndex.onChange([this] { drvDrive1Change(); });
  dirList1.ListIndex.onChange([this] { dirList1Click(); });
  txtPath.onLostFocus([this] { enter(txtPath.Text()); });
  cmdBrowse.onClick([this] { cmdBrowseClick(); });
  cmdOK.onClick([this] { cmdOKClick(); });
  cmdCancel.onClick([this] { close(); });
}

void frmDir::Form_Load() {
  drvDrive1.clear();
  for (const std::string& drive : context().chooser.drives()) drvDrive1.addItem(drive);
  drvDrive1.Visible(!drvDrive1.Items().empty());
  enter(context().programFolder);
}

/// What is no folder leaves the list where it was.
void frmDir::enter(const std::string& folder) {
  const std::string path = trimmed(folder);
  if (!folderExists(path)) return;
  folder_ = withoutEnd(nativePath(path));
  txtPath.Text(folder_);
  fillList();
  showDrive();
}

/// A folder that is on no drive selects none.
void frmDir::showDrive() {
  const std::string drive = upperCase(folder_.substr(0, folder_.find(':') + 1));
  drvDrive1.ListIndex.setQuietly(drvDrive1.indexOf(drive));
}

void frmDir::fillList() {
  dirList1.clear();
  std::vector<ComboBox::Item> items{{Up}};
  for (const std::string& name : subFolders(folder_)) items.push_back({name});
  dirList1.Items(std::move(items));
}

/// A drive with nothing in it is not the chosen one.
void frmDir::drvDrive1Change() {
  enter(joinedPath(drvDrive1.Text(), ""));
  showDrive();
}

void frmDir::dirList1Click() {
  const std::string chosen = dirList1.Text();
  if (chosen.empty()) return;
  enter(chosen == Up ? above(folder_) : joinedPath(folder_, chosen));
}

void frmDir::cmdBrowseClick() {
  if (const auto folder = context().chooser.folder(folder_)) enter(*folder);
}

bool frmDir::isPresent() const {
  return spelled(folder_) == spelled(nativePath(context().programFolder)) ||
         sameFolder(folder_, context().programFolder);
}

void frmDir::cmdOKClick() {
  enter(txtPath.Text());
  const bool there = txtPath.Complaint().empty();
  const std::string old = joinedPath(folder_, "cockpits");
  if (there && isPresent()) {
    context().tell("This is your PRESENT Vorlent folder\nplease go to the old one...");
    return;
  }
  if (!there || !folderExists(old)) {
    context().tell("This is not a Vorlent folder\nplease try again...");
    return;
  }
  for (const std::string& name : subFolders(old))
    copyFolderOver(joinedPath(old, name), joinedPath(context().cockpits(), name));
  context().status.SetStatusText(1, "Cockpits imported from " + folder_);
  close();
}

}  // namespace vorlent
