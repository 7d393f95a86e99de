#include "window/CurveWindow.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "sticks/frmXY.h"
#include "window/CurveView.h"

namespace vorlent {
namespace {

constexpr int ColumnLetters = 32;
constexpr auto Hint =
    "Drag a point, or choose one with Page Up and Page Down and move it with the arrow keys; with "
    "Shift it moves by 10.";

}  // namespace

CurveWindow::CurveWindow(frmXY& form, const Guard& guard) : FormDialog(form, guard) {
  auto* view = new CurveView(form, binder(), guard, this);
  auto* content = new QWidget(this);
  auto* row = new QHBoxLayout(content);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(view, 1);
  row->addWidget(controls(form));
  fill(content, form.cmdOK, form.cmdCancel);
  view->setFocus();
}

QWidget* CurveWindow::controls(frmXY& form) {
  auto* column = new QWidget(this);
  column->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
  auto* rows = new QVBoxLayout(column);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* forms = new QGroupBox("Form of the curve", this);
  auto* options = new QVBoxLayout(forms);
  for (int mode = 0; mode < form.optMode.count(); ++mode) {
    auto* option = new QRadioButton(this);
    binder().bind(form.optMode(mode), *option, mode == 0 ? 'l' : 'n');
    options->addWidget(option);
  }
  rows->addWidget(forms);
  auto* point = new QGroupBox("Point in hand, percent", this);
  auto* boxes = new QFormLayout(point);
  for (auto [label, box] : {std::pair{"Input", &form.txtX}, std::pair{"Output", &form.txtY}}) {
    auto* edit = new QLineEdit(this);
    edit->setFocusPolicy(Qt::NoFocus);
    edit->setMaximumWidth(edit->fontMetrics().horizontalAdvance("00000000"));
    binder().bind(*box, *edit);
    edit->setAccessibleName(label);
    boxes->addRow(label, edit);
  }
  rows->addWidget(point);
  for (auto [button, key] : {std::pair{&form.cmdStart, 'r'}, std::pair{&form.cmdDefault, 'd'}}) {
    auto* push = new QPushButton(this);
    binder().bind(*button, *push, key);
    rows->addWidget(push);
  }
  auto* hint = new QLabel(Hint, this);
  hint->setWordWrap(true);
  hint->setFixedWidth(fontMetrics().averageCharWidth() * ColumnLetters);
  rows->addWidget(hint);
  rows->addStretch();
  return column;
}

}  // namespace vorlent
