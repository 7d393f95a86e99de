#include "window/MainWindow.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>
#include <QToolButton>
#include <array>
#include <vector>

#include "core/frmMainClient.h"
#include "core/frmStatus.h"
#include "window/ControlGroup.h"
#include "window/StatusPanel.h"

namespace vorlent {
namespace {

struct MenuRow {
  const char* title;
  /// How the names of its entries, an array of controls, begin.
  const char* array;
  bool checkable;
};

constexpr std::array Menus{
    MenuRow{"&File", "mnuFile(", false}, MenuRow{"&Settings", "Settings(", true},
    MenuRow{"&Network", "mnuNetwork(", false}, MenuRow{"Ai&rac", "mnuAirac(", false},
    MenuRow{"&Help", "mnuHelp(", false}};

/// What a window manager adds to the window, at most.
constexpr QSize Frame_px(4, 40);

using Column = std::vector<ControlGroup*>;

// The columns from left to right, and each from top to bottom, are the form's tab order. No letter
// with Alt stands for two controls, or for a control and a menu; a label whose letters are all
// taken has a digit behind it.

Column sticksColumn(frmMainClient& form, const Binder& binder) {
  auto* sticks = new ControlGroup("Sticks", binder);
  sticks->row(form.chkStick, 'j');
  sticks->row("Num&ber of sticks", form.txtSticks);
  sticks->row("Inter&val in ms", form.txtPoll);
  sticks->row(form.cmdStick, 'e');
  sticks->row("Stic&k", form.cboStick);
  auto* aircraft = new ControlGroup("Aircraft", binder);
  aircraft->row("Select &Aircraft", form.cboDir);
  aircraft->row(form.Command1, 'm');
  return {sticks, aircraft};
}

Column fuelColumn(frmMainClient& form, const Binder& binder) {
  auto* fuel = new ControlGroup("Fuel", binder);
  fuel->row(form.chkFuel, 'd');
  fuel->row("Main fuel L USG (&3)", form.txtLeftMain);
  fuel->row("Main fuel R USG (&4)", form.txtRightMain);
  fuel->row("Aux fuel L USG (&5)", form.txtLeftAux);
  fuel->row("Aux fuel R USG (&6)", form.txtRightAux);
  auto* controls = new ControlGroup("Flight controls", binder);
  controls->row(form.chkBrake, 'l');
  controls->row("Flap positions (&7)", form.txtFlaps);
  return {fuel, controls};
}

Column serverColumn(frmMainClient& form, const Binder& binder) {
  auto* server = new ControlGroup("Server", binder);
  server->row(form.chkSound, 'u');
  server->row(form.cmdStop, 't');
  server->row(form.cmdExit4, 'x');
  auto* connection = new ControlGroup("Connection", binder);
  connection->row("&IP address", form.txtIP);
  connection->row("Lo&west port", form.txtPort);
  connection->row("How man&y clients", form.txtClients);
  return {server, connection};
}

Column moreColumn(frmMainClient& form, const Binder& binder) {
  auto* selectors = new ControlGroup("Fuel selectors", binder);
  selectors->row("Selector &1", form.txtFuelL).setReadOnly(true);
  selectors->row("Selector &2", form.txtFuelR).setReadOnly(true);
  auto* more = new ControlGroup("Sound and clients", binder);
  more->row(form.cmdSound, 'o');
  more->row(form.cmdStopCts, 'c');
  more->row(form.chkLog, 'g');
  more->row(form.chkFsTop, Binder::NoKey);
  more->row(form.chkFsMax, Binder::NoKey);
  more->row(form.Command2, 'p');
  return {selectors, more};
}

QLayout* stacked(const Column& column) {
  auto* stack = new QVBoxLayout;
  for (ControlGroup* group : column) stack->addWidget(group);
  stack->setStretchFactor(column.back(), 1);
  ControlGroup::align(column);
  return stack;
}

}  // namespace

MainWindow::MainWindow(frmMainClient& form, frmStatus& status, const Guard& guard)
    : form_(form), guard_(guard) {
  setObjectName(QString::fromStdString(form.name()));
  follow(form.Caption, *this, [](MainWindow& window, const std::string& caption) {
    window.setWindowTitle(QString::fromStdString(caption));
  });
  const Binder binder(guard);
  addMenus(binder);
  layOut(status, binder);
  binder.bind(form.sbStatusBar, *statusBar());
  setTabOrders();
  takeItsSize();
}

void MainWindow::addMenus(const Binder& binder) {
  for (const MenuRow& row : Menus) {
    QMenu* menu = menuBar()->addMenu(row.title);
    for (Control* control : form_.controls()) {
      auto* entry = dynamic_cast<MenuItem*>(control);
      if (!entry || !entry->name().starts_with(row.array)) continue;
      QAction* action = menu->addAction(QString());
      action->setCheckable(row.checkable);
      action->setSeparator(entry->Caption() == "-");
      binder.bind(*entry, *action);
    }
  }
  auto* manual = new QToolButton;
  manual->setToolButtonStyle(Qt::ToolButtonTextOnly);
  manual->setAutoRaise(true);
  manual->setFocusPolicy(Qt::NoFocus);
  binder.bind(form_.Image1, *manual);
  menuBar()->setCornerWidget(manual);
}

void MainWindow::layOut(frmStatus& status, const Binder& binder) {
  auto* columns = new QHBoxLayout;
  for (const auto& column : {sticksColumn, fuelColumn, serverColumn, moreColumn})
    columns->addLayout(stacked(column(form_, binder)), 1);
  auto* all = new QWidget;
  auto* rows = new QVBoxLayout(all);
  rows->addWidget(new StatusPanel(status, binder), 1);
  rows->addLayout(columns);
  auto* scroll = new QScrollArea;
  scroll->setObjectName("settings");
  scroll->setWidget(all);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setFocusPolicy(Qt::NoFocus);
  setCentralWidget(scroll);
}

/// All of it, or as much as the screen has room for.
void MainWindow::takeItsSize() {
  const auto* scroll = qobject_cast<QScrollArea*>(centralWidget());
  const QSize bars(0, menuBar()->sizeHint().height() + statusBar()->sizeHint().height());
  const QSize room = screen()->availableSize() - Frame_px;
  resize((scroll->widget()->sizeHint() + bars).boundedTo(room));
}

/// The form's controls stand in tab order.
void MainWindow::setTabOrders() {
  QWidget* previous = nullptr;
  for (const Control* control : form_.controls()) {
    auto* widget = findChild<QWidget*>(QString::fromStdString(control->name()));
    if (!widget) continue;
    if (previous) setTabOrder(previous, widget);
    previous = widget;
  }
}

void MainWindow::closeEvent(QCloseEvent* event) noexcept {
  event->ignore();
  guard_.close(form_);
}

}  // namespace vorlent
