#pragma once

#include <initializer_list>

#include "window/FormDialog.h"

class QGridLayout;

namespace vorlent {

class frmSound;

/// The look of the sounds' settings.
class SoundWindow : public FormDialog {
 public:
  SoundWindow(frmSound& form, const Guard& guard);

 private:
  void addHeadings(QGridLayout& grid);
  void addRow(QGridLayout& grid, CheckBox& check, char altKey,
              std::initializer_list<TextBox*> boxes);

  frmSound& form_;
};

}  // namespace vorlent
