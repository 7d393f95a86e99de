#include "window/StickWindow.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "sticks/frmCStick.h"
#include "window/Lamp.h"
#include "window/SearchBox.h"

namespace vorlent {
namespace {

/// The columns of the page of axes.
namespace AxisColumn {
enum : int { Name, Lit, Value, Bars, Null, Damp, Invert, Acceleration, Encoder, Sends, Holds };
}
/// The columns of the page of lines.
namespace LineColumn {
enum : int { Name, Closed, Last, Kind, Acceleration, Encoder, Sends, Holds };
}

/// With Alt they select the rows; of an encoder none does.
constexpr auto AxisKeys = "xyzr";
constexpr auto LineKeys = "1234";

constexpr auto NoSwitches = "If you have no switches, you can use up to 15 buttons";
constexpr auto WidestTriple = "A 107 -32767.5";
constexpr auto WidestAnswer = "0BB6 holds -16384";

/// A heading over a column that is wide enough for its texts from the beginning.
void heading(QGridLayout& grid, int column, const char* text, const char* widest) {
  auto* label = new QLabel(text);
  grid.addWidget(label, 0, column);
  grid.setColumnMinimumWidth(column, label->fontMetrics().horizontalAdvance(widest));
}

QString named(const char* what, const OptionButton& row) {
  return QString("%1, %2").arg(what, QString::fromStdString(row.Caption()));
}

}  // namespace

StickWindow::StickWindow(frmCStick& form, const Guard& guard)
    : FormDialog(form, guard), form_(form) {
  auto* pages = new QTabWidget(this);
  pages->addTab(axisPage(), {});
  pages->addTab(linePage(), {});
  binder().bind(form.SSTab1, *pages);
  pages->setTabText(frmCStick::AxisPage, "&Axes");
  pages->setTabText(frmCStick::ButtonPage, "B&uttons/Switches");
  auto* content = new QWidget(this);
  auto* all = new QVBoxLayout(content);
  all->setContentsMargins(0, 0, 0, 0);
  all->addLayout(topRow());
  all->addWidget(pages, 1);
  fill(content, form.cmdOK, form.cmdCancel);
}

template <class Control, class Widget>
Widget* StickWindow::bound(Control& control, Widget* widget, const QString& spoken) {
  binder().bind(control, *widget);
  if (!spoken.isEmpty()) widget->setAccessibleName(spoken);
  return widget;
}

QLabel* StickWindow::text(Label& label) { return bound(label, new QLabel(this)); }

QWidget* StickWindow::number(TextBox& box, const QString& spoken) {
  auto* edit = bound(box, new QLineEdit(this), spoken);
  edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance("000000") + 16);
  edit->setMaximumWidth(edit->fontMetrics().horizontalAdvance("00000000") + 16);
  if (box.Locked()) edit->setFocusPolicy(Qt::NoFocus);
  return edit;
}

/// The heading of the column says what the box is for.
QWidget* StickWindow::tick(CheckBox& box, const QString& spoken) {
  auto* check = bound(box, new QCheckBox(this), spoken);
  check->setText({});
  return check;
}

QLayout* StickWindow::topRow() {
  auto* row = new QHBoxLayout;
  auto* find = new QCheckBox(this);
  binder().bind(form_.chkFind, *find, 'p');
  row->addWidget(find);
  row->addStretch();
  row->addWidget(text(form_.lblBoard));
  return row;
}

/// The reading of the board over what it is after smoothing and inversion.
QWidget* StickWindow::readings(int axis) {
  auto* both = new QWidget(this);
  auto* rows = new QVBoxLayout(both);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(2);
  for (auto [bar, spoken] : {std::pair{&form_.prgRaw(axis), "Reading"},
                             std::pair{&form_.prgValue(axis), "Conditioned"}}) {
    auto* progress = bound(*bar, new QProgressBar(this), named(spoken, form_.optAxes(axis)));
    progress->setTextVisible(false);
    progress->setFixedHeight(progress->fontMetrics().height() / 2);
    progress->setMinimumWidth(progress->fontMetrics().averageCharWidth() * 14);
    progress->setToolTip(spoken);
    rows->addWidget(progress);
  }
  return both;
}

void StickWindow::axisRow(QGridLayout& grid, int axis) {
  const int row = axis + 1;
  const OptionButton& name = form_.optAxes(axis);
  auto* option = new QRadioButton(this);
  binder().bind(form_.optAxes(axis), *option, AxisKeys[axis]);
  grid.addWidget(option, row, AxisColumn::Name);
  grid.addWidget(bound(form_.shpAxis(axis), new Lamp(this), named("Active", name)), row,
                 AxisColumn::Lit);
  grid.addWidget(number(form_.txtValue(axis), named("Value", name)), row, AxisColumn::Value);
  grid.addWidget(readings(axis), row, AxisColumn::Bars);
  grid.addWidget(number(form_.txtNull(axis), named("Null zone", name)), row, AxisColumn::Null);
  grid.addWidget(tick(form_.chkDamp(axis), named("Damp", name)), row, AxisColumn::Damp,
                 Qt::AlignCenter);
  grid.addWidget(tick(form_.chkInvert(axis), named("Invert", name)), row, AxisColumn::Invert,
                 Qt::AlignCenter);
  grid.addWidget(number(form_.txtAccA(axis), named("Acceleration", name)), row,
                 AxisColumn::Acceleration);
  if (axis % 2 == 0)
    grid.addWidget(
        bound(form_.cboEncA(axis / 2), new QComboBox(this), named("Kind of encoder", name)), row,
        AxisColumn::Encoder);
  grid.addWidget(text(form_.lblSentA(axis)), row, AxisColumn::Sends);
  grid.addWidget(text(form_.lblAnswerA(axis)), row, AxisColumn::Holds);
}

QWidget* StickWindow::axisPage() {
  auto* page = new QWidget(this);
  auto* rows = new QVBoxLayout(page);
  auto* grid = new QGridLayout;
  grid->addWidget(text(form_.lblValue), 0, AxisColumn::Value);
  grid->addWidget(new QLabel("Reading / conditioned", this), 0, AxisColumn::Bars);
  grid->addWidget(text(form_.lblNull), 0, AxisColumn::Null);
  grid->addWidget(text(form_.lblDamp), 0, AxisColumn::Damp, Qt::AlignHCenter);
  grid->addWidget(text(form_.lblInv), 0, AxisColumn::Invert, Qt::AlignHCenter);
  grid->addWidget(text(form_.lblAccA), 0, AxisColumn::Acceleration);
  heading(*grid, AxisColumn::Sends, "Sends", WidestTriple);
  heading(*grid, AxisColumn::Holds, "Simulator", WidestAnswer);
  grid->setColumnStretch(AxisColumn::Bars, 1);
  for (int axis = 0; axis < frmCStick::Axes; ++axis) axisRow(*grid, axis);
  rows->addLayout(grid);
  rows->addWidget(assignment(text(form_.lblAxisName), {&form_.cboAxes, &form_.cboACoder},
                             form_.chkKeyA, form_.txtKeyA, form_.lblKeyA));
  rows->addStretch();
  rows->addLayout(buttons(form_.cmdCoderAxis, 'e', form_.cmdSens, 's'));
  return page;
}

void StickWindow::lineRow(QGridLayout& grid, int line) {
  const int row = line + 1;
  const OptionButton& name = form_.optSwitches(line);
  auto* option = new QRadioButton(this);
  binder().bind(form_.optSwitches(line), *option, LineKeys[line]);
  grid.addWidget(option, row, LineColumn::Name);
  grid.addWidget(bound(form_.shpLine(line), new Lamp(this), named("Closed", name)), row,
                 LineColumn::Closed, Qt::AlignCenter);
  grid.addWidget(bound(form_.shpOnOff(line), new Lamp(this), named("Last sent", name)), row,
                 LineColumn::Last, Qt::AlignCenter);
  grid.addWidget(bound(form_.OnOff(line), new QCheckBox(this), named("On/Off switch", name)), row,
                 LineColumn::Kind);
  grid.addWidget(number(form_.txtAccBtn(line), named("Acceleration", name)), row,
                 LineColumn::Acceleration);
  if (line % 2 == 0)
    grid.addWidget(
        bound(form_.cboEncBtn(line / 2), new QComboBox(this), named("Kind of encoder", name)), row,
        LineColumn::Encoder);
  grid.addWidget(text(form_.lblSentBtn(line)), row, LineColumn::Sends);
  grid.addWidget(text(form_.lblAnswerBtn(line)), row, LineColumn::Holds);
}

QWidget* StickWindow::linePage() {
  auto* page = new QWidget(this);
  auto* rows = new QVBoxLayout(page);
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(grid->horizontalSpacing() + page->fontMetrics().averageCharWidth());
  grid->addWidget(new QLabel("Closed", this), 0, LineColumn::Closed);
  grid->addWidget(new QLabel("On", this), 0, LineColumn::Last);
  auto* type = text(form_.lblType);
  follow(form_.OnOff(0).Visible, *type, [](QLabel& l, bool seen) { l.setVisible(seen); });
  grid->addWidget(type, 0, LineColumn::Kind);
  grid->addWidget(text(form_.lblAccBtn), 0, LineColumn::Acceleration);
  heading(*grid, LineColumn::Sends, "Sends", WidestTriple);
  heading(*grid, LineColumn::Holds, "Simulator", WidestAnswer);
  grid->setColumnStretch(LineColumn::Holds, 1);
  for (int line = 0; line < frmCStick::Lines; ++line) lineRow(*grid, line);
  rows->addLayout(grid);
  rows->addWidget(assignment(nullptr, {&form_.cboSwitches, &form_.cboButtons, &form_.cboCoder},
                             form_.chkKeyBtn, form_.txtKeyBtn, form_.lblKeyBtn));
  rows->addWidget(new QLabel(NoSwitches, this));
  rows->addStretch();
  rows->addLayout(buttons(form_.cmdCoderBtn, 'e', form_.cmdMore, 'b'));
  return page;
}

/// The catalogues stand in one place: at most one of them is in sight.
QWidget* StickWindow::assignment(QWidget* name, const std::vector<ComboBox*>& catalogues,
                                 CheckBox& sendKey, TextBox& key, Label& told) {
  auto* group = new QGroupBox("The selected row does", this);
  auto* rows = new QVBoxLayout(group);
  auto* row = new QHBoxLayout;
  rows->addLayout(row);
  auto* telling = text(told);
  follow(told.Caption, *telling,
         [](QLabel& l, const std::string& caption) { l.setVisible(!caption.empty()); });
  rows->addWidget(telling);
  if (name != nullptr) row->addWidget(name);
  for (ComboBox* catalogue : catalogues) {
    row->addWidget(new SearchBox(*catalogue, "Command of the selected row", binder(), this), 2);
  }
  row->addStretch(1);
  auto* check = new QCheckBox(this);
  binder().bind(sendKey, *check, 'k');
  row->addWidget(check);
  auto* edit = bound(key, new QLineEdit(this), "Key of the selected row");
  follow(sendKey.Visible, *edit, [](QLineEdit& e, bool possible) {
    e.setPlaceholderText(possible ? "Press a key" : "A switch sends no key");
  });
  edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance("Ctrl-Shft-BACKSPACE") + 12);
  takeKeys(key, *edit);
  row->addWidget(edit, 1);
  return group;
}

QLayout* StickWindow::buttons(Button& coder, char coderKey, Button& other, char otherKey) {
  auto* row = new QHBoxLayout;
  for (auto [button, key] : {std::pair{&coder, coderKey}, std::pair{&other, otherKey}}) {
    auto* push = new QPushButton(this);
    binder().bind(*button, *push, key);
    row->addWidget(push);
  }
  row->addStretch();
  return row;
}

}  // namespace vorlent
