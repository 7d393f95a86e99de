#include "window/SoundWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <array>
#include <utility>

#include "extras/frmSound.h"

namespace vorlent {
namespace {

/// What a row's boxes are, for who hears them read.
constexpr std::array LevelColumns = {"Volume", "Factor", "Max volume", "Threshold"};

}  // namespace

SoundWindow::SoundWindow(frmSound& form, const Guard& guard)
    : FormDialog(form, guard), form_(form) {
  auto* content = new QWidget(this);
  auto* devices = new QComboBox(content);
  binder().bind(form.cboSoundDevice, *devices);
  auto* device = new QLabel("&Device", content);
  device->setBuddy(devices);
  auto* top = new QHBoxLayout;
  top->addWidget(device);
  top->addWidget(devices, 1);
  auto* grid = new QGridLayout;
  addHeadings(*grid);
  addRow(*grid, form.chkRum, 'g',
         {&form.txtRum(0), &form.txtRum(1), &form.txtRum(2), &form.txtRum(3)});
  addRow(*grid, form.chkBump, 't', {&form.txtBump(0), &form.txtBump(1), &form.txtBump(2)});
  addRow(*grid, form.chkTyres, 'w', {&form.txtTyres()});
  addRow(*grid, form.chkStart, 's', {&form.txtStart()});
  auto* all = new QVBoxLayout(content);
  all->setContentsMargins(0, 0, 0, 8);
  all->addLayout(top);
  all->addLayout(grid);
  fill(content, form.cmdOK, form.cmdCancel);
}

void SoundWindow::addHeadings(QGridLayout& grid) {
  grid.addWidget(new QLabel(LevelColumns[2], this), 0, 3);
  for (auto [heading, column] :
       {std::pair{&form_.lblVolume, 1}, {&form_.lblFactor, 2}, {&form_.lblThreshold, 4}}) {
    auto* label = new QLabel(this);
    binder().bind(*heading, *label);
    grid.addWidget(label, 0, column);
  }
}

void SoundWindow::addRow(QGridLayout& grid, CheckBox& check, char altKey,
                         std::initializer_list<TextBox*> boxes) {
  const int row = grid.rowCount();
  auto* checkBox = new QCheckBox(this);
  binder().bind(check, *checkBox, altKey);
  grid.addWidget(checkBox, row, 0);
  int column = 1;
  for (TextBox* box : boxes) {
    auto* edit = new QLineEdit(this);
    binder().bind(*box, *edit);
    edit->setAccessibleName(
        QString("%1, %2").arg(LevelColumns.at(static_cast<std::size_t>(column - 1)),
                              QString::fromStdString(check.Caption())));
    grid.addWidget(edit, row, column++);
  }
}

}  // namespace vorlent
