#include "core/CockpitMenu.h"

#include <string>

#include "base/files.h"
#include "cockpits/frmDir.h"
#include "cockpits/frmNew.h"
#include "cockpits/frmSave.h"
#include "cockpits/frmZip.h"
#include "core/Server.h"
#include "core/frmMainClient.h"
#include "extras/Flaps.h"
#include "extras/SoundEvents.h"

namespace vorlent {

void CockpitMenu::showNew() {
  server_.newCockpit->onUnload([this] {
    form_.SaveCFG();
    initAgain();
  });
  server_.newCockpit->showModal();
}

void CockpitMenu::showSave() { server_.saveTemplate->showModal(); }

void CockpitMenu::showImportOld() {
  server_.importOld->onUnload([this] { form_.refillDirlist(); });
  server_.importOld->showModal();
}

void CockpitMenu::showExport() { server_.zip->showExport(form_.cboDir.Text()); }

void CockpitMenu::showImport() {
  server_.zip->onImported([this] { form_.refillDirlist(); });
  server_.zip->showImport();
}

/// The flaps of the new cockpit are read at the next start.
void CockpitMenu::change() {
  modPublic& v = server_.store;
  if (form_.cboDir.Text().empty()) return;
  const std::string old = v.CockpitPath;
  v.CockpitName = form_.cboDir.Text();
  v.CockpitPath = joinedPath(server_.cockpitContext().cockpits(), v.CockpitName) + "\\";
  if (old.empty()) return;
  form_.cmdStopCts.press();
  server_.flaps->writeFile(old);
  server_.soundEvents->stopSounds();
  form_.SaveCFG();
  initAgain();
  form_.SetStatusText(1,
                      v.CockpitName + ": its sounds are in use, its flaps from the next start on");
}

/// Init makes the sessions anew, without a port; the displays find theirs again.
void CockpitMenu::initAgain() {
  form_.Init();
  form_.SetSocks();
}

}  // namespace vorlent
