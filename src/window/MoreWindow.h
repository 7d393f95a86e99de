#pragma once

#include "window/FormDialog.h"

namespace vorlent {

class frmCMore;

/// The look of the window for the buttons 5 to 15.
class MoreWindow : public FormDialog {
 public:
  MoreWindow(frmCMore& form, const Guard& guard);

 private:
  QWidget* rows(frmCMore& form);
  QWidget* assignment(frmCMore& form);
};

}  // namespace vorlent
