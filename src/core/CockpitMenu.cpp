#include "core/CockpitMenu.h"

#include <string>

#include "base/FirstFault.h"
#include "base/files.h"
#include "cockpits/frmDir.h"
#include "cockpits/frmNew.h"
#include "cockpits/frmSave.h"
#include "cockpits/frmZip.h"
#include "core/Server.h"
#include "core/frmMainClient.h"
#include "core/telling.h"
#include "extras/Flaps.h"
#include "extras/SoundEvents.h"

namespace vorlent {
namespace {

/// Flaps.cfg goes to the cockpit at `path`. Flaps that cannot be written keep no setting from being
/// saved.
void saveOld(Server& server, frmMainClient& form, const std::string& path) {
  FirstFault fault;
  fault.of(
      [&] { telling(form, "Flaps.cfg was not saved", [&] { server.flaps->writeFile(path); }); });
  server.soundEvents->stopRumble();
  fault.of([&] { form.SaveCFG(); });
  fault.raise();
}

}  // namespace

/// Displays that are served end in order, and the sounds with them: the next one starts both anew.
void CockpitMenu::showNew() {
  server_.newCockpit->onUnload([this] {
    form_.cmdStopCts.press();
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
  saveOld(server_, form_, old);
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
