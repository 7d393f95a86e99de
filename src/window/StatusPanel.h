#pragma once

#include <QWidget>

#include "window/Binder.h"

namespace vorlent {

class frmStatus;

/// The look of the status: link and sticks, annunciators, sessions, side by side. Takes no focus.
class StatusPanel : public QWidget {
 public:
  StatusPanel(frmStatus& form, const Binder& binder);

 private:
  QWidget* linkGroup(frmStatus& form, const Binder& binder);
  QWidget* annunciatorGroup(frmStatus& form, const Binder& binder);
  QWidget* sessionGroup(frmStatus& form, const Binder& binder);
};

}  // namespace vorlent
