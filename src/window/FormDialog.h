#pragma once

#include <QDialog>

#include "window/Binder.h"

class QHBoxLayout;

namespace vorlent {

/// The look of a form that is shown modally. Escape and the close box are the form's.
class FormDialog : public QDialog {
 public:
  FormDialog(Form& form, Guard guard);

  void reject() noexcept override;
  /// The window's content, which scrolls where the screen is too small for it.
  void fill(QWidget* content);
  /// The same over the buttons.
  void fill(QWidget* content, Button& ok, Button& cancel);

 protected:
  const Binder& binder() const { return binder_; }
  const Guard& guard() const { return guard_; }
  /// The form's controls stand in tab order.
  void setTabOrders();
  /// Keys that are pressed on the box go to its control, all but Tab, which moves on.
  void takeKeys(TextBox& box, QWidget& widget);
  void fill(QWidget* content, QLayout* below);

 private:
  QHBoxLayout* closingRow(Button& ok, Button& cancel);

  Form& form_;
  Guard guard_;
  Binder binder_;
};

}  // namespace vorlent
