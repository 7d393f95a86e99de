#pragma once

#include <QMainWindow>

#include "window/Binder.h"

namespace vorlent {

class frmMainClient;
class frmStatus;

/// The main window's look, with the status above the settings. Its close box is the form's. It fits
/// 1024 by 600; where there is less room it scrolls.
class MainWindow : public QMainWindow {
 public:
  MainWindow(frmMainClient& form, frmStatus& status, const Guard& guard);

 protected:
  void closeEvent(QCloseEvent* event) noexcept override;

 private:
  void addMenus(const Binder& binder);
  void layOut(frmStatus& status, const Binder& binder);
  void setTabOrders();
  void takeItsSize();

  frmMainClient& form_;
  Guard guard_;
};

}  // namespace vorlent
