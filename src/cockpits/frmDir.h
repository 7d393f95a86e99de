#pragma once

#include <string>

#include "cockpits/ModalForm.h"

namespace vorlent {

/// Takes the cockpits of an earlier installation over. The operator walks through the folders by
/// dirList1, whose first entry leads up, types a path, or points at a folder.
class frmDir : public ModalForm {
 public:
  explicit frmDir(const CockpitContext& context);

  ComboBox drvDrive1{"drvDrive1"};
  TextBox txtPath{"txtPath"};
  Button cmdBrowse{"cmdBrowse", "Browse..."};
  ComboBox dirList1{"dirList1"};
  Button cmdOK{"cmdOK", "OK"};
  Button cmdCancel{"cmdCancel", "Cancel"};

 private:
  void Form_Load() override;
  void enter(const std::string& folder);
  void fillList();
  void showDrive();
  void drvDrive1Change();
  void dirList1Click();
  void cmdBrowseClick();
  void cmdOKClick();
  bool isPresent() const;

  std::string folder_;  ///< the chosen one
};

}  // namespace vorlent
