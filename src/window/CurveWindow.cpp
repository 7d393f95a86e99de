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

constexpr auto Hint =
    "Drag a point, or choose one with Page Up and Page Down and move it with the arrow keys; with "
    "Shift it moves by 10.";

}  // namespace

CurveWindow::CurveWindow(frmXY& form, const Guard& guard) : FormDialog(form, guard) {
  auto* view = new CurveView(form, binder(), guard);
  auto* upper = new QHBoxLayout;
  upper->addWidget(view, 1);
  upper->addWidget(controls(form));
  auto* all = new QVBoxLayout(this);
  all->addLayout(upper, 1);
  all->addLayout(closingRow(form.cmdOK, form.cmdCancel));
  setTabOrders();
  view->setFocus();
}

QWidget* CurveWindow::controls(frmXY& form) {
  auto* column = new QWidget;
  auto* rows = new QVBoxLayout(column);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* forms = new QGroupBox("Form of the curve");
  auto* options = new QVBoxLayout(forms);
  for (int mode = 0; mode < form.optMode.count(); ++mode) {
    auto* option = new QRadioButton;
    binder().bind(form.optMode(mode), *option);
    options->addWidget(option);
  }
  rows->addWidget(forms);
  auto* point = new QGroupBox("Point in hand, percent");
  auto* boxes = new QFormLayout(point);
  for (auto [label, box] : {std::pair{"Input", &form.txtX}, std::pair{"Output", &form.txtY}}) {
    auto* edit = new QLineEdit;
    edit->setFocusPolicy(Qt::NoFocus);
    edit->setMaximumWidth(edit->fontMetrics().horizontalAdvance("00000000"));
    binder().bind(*box, *edit);
    edit->setAccessibleName(label);
    boxes->addRow(label, edit);
  }
  rows->addWidget(point);
  for (auto [button, key] : {std::pair{&form.cmdStart, 'r'}, std::pair{&form.cmdDefault, 'd'}}) {
    auto* push = new QPushButton;
    binder().bind(*button, *push, key);
    push->setAutoDefault(false);
    rows->addWidget(push);
  }
  auto* hint = new QLabel(Hint);
  hint->setWordWrap(true);
  rows->addWidget(hint);
  rows->addStretch();
  return column;
}

}  // namespace vorlent
