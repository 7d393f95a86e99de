#pragma once

#include "window/FormDialog.h"

namespace vorlent {

class frmTestMCP;

/// The look of the mode control panel on the screen: read-outs above, three rows of buttons below,
/// each with its lamp.
class TestMcpWindow : public FormDialog {
 public:
  TestMcpWindow(frmTestMCP& form, const Guard& guard);
};

}  // namespace vorlent
