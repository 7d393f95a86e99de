#pragma once

#include <QDialog>
#include <initializer_list>

#include "window/Binder.h"

class QGridLayout;

namespace vorlent {

class frmSound;

/// The look of the sounds' settings. Escape and the close box are the form's.
class SoundWindow : public QDialog {
 public:
  SoundWindow(frmSound& form, const Guard& guard);

  void reject() noexcept override;

 private:
  void addHeadings(QGridLayout& grid);
  void addRow(QGridLayout& grid, CheckBox& check, char altKey,
              std::initializer_list<TextBox*> boxes);

  frmSound& form_;
  Guard guard_;
  Binder binder_;
};

}  // namespace vorlent
