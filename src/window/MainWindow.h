#pragma once

#include <QMainWindow>

#include "window/Binder.h"

namespace vorlent {

class frmMainClient;

/// The main window's look. Its close box is the form's.
class MainWindow : public QMainWindow {
 public:
  MainWindow(frmMainClient& form, const Guard& guard);

 protected:
  void closeEvent(QCloseEvent* event) noexcept override;

 private:
  void addMenus(const Binder& binder);
  void layOut(const Binder& binder);
  void setTabOrders();

  frmMainClient& form_;
  Guard guard_;
};

}  // namespace vorlent
