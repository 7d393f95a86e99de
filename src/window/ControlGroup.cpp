#include "window/ControlGroup.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

namespace vorlent {
namespace {

/// An address, the longest text of fixed length, is seen whole, with some room for the frame.
int leastWidth_px(const QWidget& widget) {
  return widget.fontMetrics().horizontalAdvance("255.255.255.255") + 16;
}

}  // namespace

ControlGroup::ControlGroup(const QString& title, const Binder& binder)
    : QGroupBox(title), binder_(binder), rows_(new QFormLayout(this)) {
  rows_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
}

QLineEdit& ControlGroup::row(const QString& label, TextBox& box) {
  auto* edit = new QLineEdit(this);
  edit->setMinimumWidth(leastWidth_px(*edit));
  binder_.bind(box, *edit);
  labelledRow(label, box, *edit);
  return *edit;
}

void ControlGroup::row(const QString& label, ComboBox& box) {
  auto* list = new QComboBox(this);
  binder_.bind(box, *list);
  labelledRow(label, box, *list);
}

void ControlGroup::row(CheckBox& box, char altKey) {
  auto* check = new QCheckBox(this);
  binder_.bind(box, *check, altKey);
  rows_->addRow(check);
}

void ControlGroup::row(Button& button, char altKey) {
  auto* push = new QPushButton(this);
  binder_.bind(button, *push, altKey);
  rows_->addRow(push);
}

void ControlGroup::labelledRow(const QString& label, Control& control, QWidget& widget) {
  auto* text = new QLabel(label, this);
  text->setBuddy(&widget);
  follow(control.Visible, *text, [](QLabel& l, bool visible) { l.setVisible(visible); });
  rows_->addRow(text, &widget);
  labels_.push_back(text);
}

void ControlGroup::align(const std::vector<ControlGroup*>& column) {
  int widest_px = 0;
  for (const ControlGroup* group : column)
    for (const QLabel* label : group->labels_)
      widest_px = std::max(widest_px, label->sizeHint().width());
  for (const ControlGroup* group : column)
    for (QLabel* label : group->labels_) label->setMinimumWidth(widest_px);
}

}  // namespace vorlent
