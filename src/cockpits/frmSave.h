#pragma once

#include <functional>
#include <string>

#include "cockpits/ModalForm.h"

namespace vorlent {

/// Saves the aircraft in use as a template.
class frmSave : public ModalForm {
 public:
  /// `cockpit` tells the name of the aircraft in use.
  frmSave(const CockpitContext& context, std::function<std::string()> cockpit);

  TextBox Text1{"Text1"};
  Button cmdOK{"cmdOK", "OK"};
  Button cmdCancel{"cmdCancel", "Cancel"};

 private:
  void Form_Load() override { Text1.Text("Template1"); }
  void cmdOKClick();

  std::function<std::string()> cockpit_;
};

}  // namespace vorlent
