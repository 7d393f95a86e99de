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

/// With Alt they select the buttons 5 to 15.
constexpr auto ButtonKeys = "5678901234b";
constexpr auto WidestPress = "P 1107 1";
constexpr auto WidestButtonAnswer = "0BB6 holds -16384";

/// Over a column that is wide enough for its texts from the beginning.
void extraHeading(QGridLayout& grid, int column, const char* text, const char* widest) {
  auto* label = new QLabel(text);
  grid.addWidget(label, 0, column);
  grid.setColumnMinimumWidth(column, label->fontMetrics().horizontalAdvance(widest));
}

}  // namespace

MoreWindow::MoreWindow(frmCMore& form, const Guard& guard) : FormDialog(form, guard) {
  auto* content = new QWidget(this);
  auto* all = new QVBoxLayout(content);
  all->setContentsMargins(0, 0, 0, 0);
  all->addWidget(rows(form));
  all->addWidget(assignment(form));
  all->addStretch();
  fill(content, form.cmdOK, form.cmdCancel);
}

QWidget* MoreWindow::rows(frmCMore& form) {
  auto* part = new QWidget(this);
  auto* grid = new QGridLayout(part);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->addWidget(new QLabel("On", this), 0, 1);
  extraHeading(*grid, 2, "Sends", WidestPress);
  extraHeading(*grid, 3, "Simulator", WidestButtonAnswer);
  grid->setColumnStretch(3, 1);
  for (int i = 0; i < frmCMore::Buttons; ++i) {
    auto* option = new QRadioButton(this);
    auto* lamp = new Lamp(this);
    binder().bind(form.optSwitches(i), *option, ButtonKeys[i]);
    binder().bind(form.shpOnOff(i), *lamp);
    lamp->setAccessibleName("Last sent, " + QString::fromStdString(form.optSwitches(i).Caption()));
    grid->addWidget(option, i + 1, 0);
    grid->addWidget(lamp, i + 1, 1, Qt::AlignCenter);
    int column = 2;
    for (Label* label : {&form.lblSent(i), &form.lblAnswer(i)}) {
      auto* text = new QLabel(this);
      binder().bind(*label, *text);
      grid->addWidget(text, i + 1, column++);
    }
  }
  return part;
}

QWidget* MoreWindow::assignment(frmCMore& form) {
  auto* group = new QGroupBox("The selected button does", this);
  auto* row = new QHBoxLayout(group);
  row->addWidget(new SearchBox(form.cboButtons, "Command of the selected button", binder(), this),
                 3);
  auto* check = new QCheckBox(this);
  binder().bind(form.chkKeyBtn, *check, 'k');
  row->addWidget(check);
  auto* edit = new QLineEdit(this);
  binder().bind(form.txtKeyBtn, *edit);
  edit->setAccessibleName("Key of the selected button");
  edit->setPlaceholderText("Press a key");
  takeKeys(form.txtKeyBtn, *edit);
  edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance("Ctrl-Shft-BACKSPACE") + 12);
  row->addWidget(edit, 1);
  return group;
}

}  // namespace vorlent
