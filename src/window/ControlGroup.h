#pragma once

#include <QFormLayout>
#include <QGroupBox>

#include "window/Binder.h"

namespace vorlent {

/// A titled box with a control in each row.
class ControlGroup : public QGroupBox {
 public:
  ControlGroup(const QString& title, const Binder& binder);

  QLineEdit& row(const QString& label, TextBox& box);
  void row(const QString& label, ComboBox& box);
  void row(CheckBox& box);
  void row(Button& button);

 private:
  /// The label is seen when its control is.
  void labelledRow(const QString& label, Control& control, QWidget& widget);

  const Binder binder_;
  QFormLayout* rows_;
};

}  // namespace vorlent
