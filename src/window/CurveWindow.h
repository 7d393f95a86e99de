#pragma once

#include "window/FormDialog.h"

namespace vorlent {

class frmXY;

/// The look of the editor of response curves: the graph, and what belongs to it at its right.
class CurveWindow : public FormDialog {
 public:
  CurveWindow(frmXY& form, const Guard& guard);

 private:
  QWidget* controls(frmXY& form);
};

}  // namespace vorlent
