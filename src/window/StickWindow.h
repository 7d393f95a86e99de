#pragma once

#include "window/FormDialog.h"

class QGridLayout;
class QLabel;

namespace vorlent {

class frmCStick;

/// The look of a stick's window: a page of axes and one of lines, a row each; under the rows what
/// the selected one has assigned.
class StickWindow : public FormDialog {
 public:
  StickWindow(frmCStick& form, const Guard& guard);

 private:
  QLayout* topRow();
  QWidget* axisPage();
  QWidget* linePage();
  void axisRow(QGridLayout& grid, int axis);
  void lineRow(QGridLayout& grid, int line);
  QWidget* assignment(QWidget* name, const std::vector<ComboBox*>& catalogues, CheckBox& sendKey,
                      TextBox& key, Label& told);
  QLayout* buttons(Button& coder, char coderKey, Button& other, char otherKey);

  template <class Control, class Widget>
  Widget* bound(Control& control, Widget* widget, const QString& spoken = {});
  QLabel* text(Label& label);
  QWidget* number(TextBox& box, const QString& spoken);
  QWidget* tick(CheckBox& box, const QString& spoken);
  QWidget* readings(int axis);

  frmCStick& form_;
};

}  // namespace vorlent
