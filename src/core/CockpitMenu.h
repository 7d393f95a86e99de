#pragma once

namespace vorlent {

class frmMainClient;
struct Server;

/// The main window's part for the cockpits' folders: the forms that make, save, import and export
/// them, and the change of the cockpit in use.
class CockpitMenu {
 public:
  CockpitMenu(Server& server, frmMainClient& form) : server_(server), form_(form) {}

  /// When the form has been closed, the settings are saved and all of them read again.
  void showNew();
  void showSave();
  void showImportOld();
  void showExport();
  void showImport();
  /// Another cockpit has been selected.
  void change();

 private:
  void initAgain();

  Server& server_;
  frmMainClient& form_;
};

}  // namespace vorlent
