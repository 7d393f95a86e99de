#include "core/HelpMenu.h"

#include "base/clsIniRw.h"
#include "base/files.h"
#include "base/text.h"
#include "core/FrmTip.h"
#include "core/Server.h"
#include "core/checkLists.h"
#include "platform/Documents.h"
#include "platform/Operator.h"

namespace vorlent {
namespace {

/// A number without the zeros in front of it.
std::string shown(const IniValue& value) {
  return value.number() ? doubleText(*value.number()) : value.asText();
}

}  // namespace

void HelpMenu::showManual() {
  OpenDocument(joinedPath(server_.installation.programFolder, "Docs\\manual.htm"));
}

void HelpMenu::showCheckList() {
  server_.tip->showModal("Please check....", helpCheckList(), false);
}

void HelpMenu::showAiracStatus() {
  const std::string file = joinedPath(server_.installation.programFolder, "Data\\fmc_ident.TXT");
  const std::string text = fileExists(file)
                               ? "AIRAC data for update present\nCurrent cycle: " +
                                     shown(server_.iniRw->ReadKey("Ident", "OpProgram", file)) +
                                     "\nYou can now use the update function in Tarnwick,\n"
                                     "Close Vorlent first to minimize network load"
                               : "No AIRAC data for update present\n"
                                 "run the Navigraph updater and point to the Vorlent folder";
  server_.ports.op.messageBox(text, BoxIcon::Plain, "Vorlent");
}

void HelpMenu::OpenDocument(const std::string& path) {
  server_.ports.documents.open(nativePath(path), [this, path](int result) {
    Operator& op = server_.ports.op;
    if (result == Documents::NoAssociation)
      op.messageBox("Vorlent could not find a file association for " + nativePath(path) +
                        " on your system. You should check that your browser is correctly "
                        "installed and associated with this type of file.",
                    BoxIcon::Plain, "Vorlent");
    else if (result < Documents::NoAssociation)
      op.messageBox(
          "Problem running your web browser. You should check that your browser is "
          "correctly installed.  (Error " +
              std::to_string(result) + ")",
          BoxIcon::Plain, "Browser Unavailable");
  });
}

}  // namespace vorlent
