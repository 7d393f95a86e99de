#pragma once

#include <QFormLayout>
#include <QGroupBox>
#include <vector>

#include "window/Binder.h"

namespace vorlent {

/// A titled box with a control in each row.
class ControlGroup : public QGroupBox {
 public:
  ControlGroup(const QString& title, const Binder& binder);

  /// An "&" in the label stands before the letter that with Alt leads to the control.
  QLineEdit& row(const QString& label, TextBox& box);
  void row(const QString& label, ComboBox& box);
  void row(CheckBox& box, char altKey);
  void row(Button& button, char altKey);

  /// Groups that stand under each other get one width for their labels.
  static void align(const std::vector<ControlGroup*>& column);

 private:
  /// The label is seen when its control is.
  void labelledRow(const QString& label, Control& control, QWidget& widget);

  const Binder binder_;
  QFormLayout* rows_;
  std::vector<QLabel*> labels_;
};

}  // namespace vorlent
