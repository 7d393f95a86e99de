#include "window/MoreWindow.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include "sticks/frmCMore.h"
#include "window/Lamp.h"
#include "window/SearchBox.h"

namespace vorlent {
namespace {

constexpr auto WidestTriple = "P 1107 1";
constexpr auto WidestAnswer = "0BB6 holds -16384";

QLabel* heading(const char* text, const char* widest) {
  auto* label = new QLabel(text);
  label->setMinimumWidth(label->fontMetrics().horizontalAdvance(widest));
  return label;
}

}  // namespace

MoreWindow::MoreWindow(frmCMore& form, const Guard& guard) : FormDialog(form, guard) {
  auto* all = new QVBoxLayout(this);
  all->addWidget(rows(form));
  all->addWidget(assignment(form));
  all->addStretch();
  all->addLayout(closingRow(form.cmdOK, form.cmdCancel));
  setTabOrders();
}

QWidget* MoreWindow::rows(frmCMore& form) {
  auto* part = new QWidget;
  auto* grid = new QGridLayout(part);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->addWidget(new QLabel("Sent"), 0, 1);
  grid->addWidget(heading("Sends", WidestTriple), 0, 2);
  grid->addWidget(heading("Simulator", WidestAnswer), 0, 3);
  grid->setColumnStretch(3, 1);
  for (int i = 0; i < frmCMore::Buttons; ++i) {
    auto* option = new QRadioButton;
    auto* lamp = new Lamp;
    binder().bind(form.optSwitches(i), *option);
    binder().bind(form.shpOnOff(i), *lamp);
    lamp->setAccessibleName("Last sent, " + option->text());
    grid->addWidget(option, i + 1, 0);
    grid->addWidget(lamp, i + 1, 1, Qt::AlignCenter);
    int column = 2;
    for (Label* label : {&form.lblSent(i), &form.lblAnswer(i)}) {
      auto* text = new QLabel;
      binder().bind(*label, *text);
      grid->addWidget(text, i + 1, column++);
    }
  }
  return part;
}

QWidget* MoreWindow::assignment(frmCMore& form) {
  auto* group = new QGroupBox("The selected button does");
  auto* row = new QHBoxLayout(group);
  auto* box = new SearchBox(form.cboButtons, binder());
  box->setAccessibleName("Command of the selected button");
  row->addWidget(box, 2);
  row->addStretch(1);
  auto* check = new QCheckBox;
  binder().bind(form.chkKeyBtn, *check, 'k');
  row->addWidget(check);
  auto* edit = new QLineEdit;
  binder().bind(form.txtKeyBtn, *edit);
  edit->setAccessibleName("Key of the selected button");
  edit->setPlaceholderText("Press a key");
  takeKeys(form.txtKeyBtn, *edit);
  row->addWidget(edit, 1);
  return group;
}

}  // namespace vorlent
