#pragma once

#include "cockpits/ModalForm.h"

namespace vorlent {

/// Makes an aircraft of a template: a folder below Cockpits with the template's files.
class frmNew : public ModalForm {
 public:
  explicit frmNew(const CockpitContext& context);

  ComboBox cboDir{"cboDir"};
  TextBox Text1{"Text1"};
  Button cmdOK{"cmdOK", "OK"};
  Button cmdCancel{"cmdCancel", "Cancel"};

 private:
  void Form_Load() override;
  void cmdOKClick();
  void make(const std::string& cockpit, const std::string& from) const;
};

}  // namespace vorlent
