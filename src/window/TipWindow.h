#pragma once

#include "window/FormDialog.h"

namespace vorlent {

class FrmTip;

/// The look of the window with advice.
class TipWindow : public FormDialog {
 public:
  TipWindow(FrmTip& form, const Guard& guard);
};

}  // namespace vorlent
