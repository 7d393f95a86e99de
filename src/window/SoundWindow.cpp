#include "window/SoundWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "extras/frmSound.h"

namespace vorlent {

SoundWindow::SoundWindow(frmSound& form, const Guard& guard)
    : form_(form), guard_(guard), binder_(guard) {
  setObjectName(QString::fromStdString(form.name()));
  follow(form.Caption, *this, [](SoundWindow& window, const std::string& caption) {
    window.setWindowTitle(QString::fromStdString(caption));
  });
  auto* devices = new QComboBox(this);
  binder_.bind(form.cboSoundDevice, *devices);
  auto* grid = new QGridLayout;
  addHeadings(*grid);
  addRow(*grid, form.chkRum, {&form.txtRum(0), &form.txtRum(1), &form.txtRum(2), &form.txtRum(3)});
  addRow(*grid, form.chkBump, {&form.txtBump(0), &form.txtBump(1), &form.txtBump(2)});
  addRow(*grid, form.chkTyres, {&form.txtTyres()});
  addRow(*grid, form.chkStart, {&form.txtStart()});

  auto* ok = new QPushButton(this);
  auto* cancel = new QPushButton(this);
  binder_.bind(form.cmdOK, *ok);
  binder_.bind(form.cmdCancel, *cancel);
  ok->setDefault(true);
  auto* bottom = new QHBoxLayout;
  bottom->addStretch();
  bottom->addWidget(ok);
  bottom->addWidget(cancel);
  auto* all = new QVBoxLayout(this);
  all->addWidget(devices);
  all->addLayout(grid);
  all->addLayout(bottom);
  all->setSizeConstraint(QLayout::SetFixedSize);
}

void SoundWindow::addHeadings(QGridLayout& grid) {
  int column = 1;
  for (Label* heading : {&form_.lblVolume, &form_.lblFactor, &form_.lblThreshold}) {
    constexpr int MaxVolumeColumn = 3;
    if (column == MaxVolumeColumn) ++column;
    auto* label = new QLabel(this);
    binder_.bind(*heading, *label);
    grid.addWidget(label, 0, column++);
  }
}

void SoundWindow::addRow(QGridLayout& grid, CheckBox& check,
                         std::initializer_list<TextBox*> boxes) {
  const int row = grid.rowCount();
  auto* checkBox = new QCheckBox(this);
  binder_.bind(check, *checkBox);
  grid.addWidget(checkBox, row, 0);
  int column = 1;
  for (TextBox* box : boxes) {
    auto* edit = new QLineEdit(this);
    binder_.bind(*box, *edit);
    grid.addWidget(edit, row, column++);
  }
}

void SoundWindow::reject() noexcept { guard_.close(form_); }

}  // namespace vorlent
