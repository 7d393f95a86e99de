#pragma once

#include <QDialog>

#include "window/Binder.h"

namespace vorlent {

class FrmTip;

/// The look of the window with advice. Escape and the close box are the form's.
class TipWindow : public QDialog {
 public:
  TipWindow(FrmTip& form, const Guard& guard);

  void reject() noexcept override;

 private:
  FrmTip& form_;
  Guard guard_;
};

}  // namespace vorlent
