#include "window/MainWindow.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <array>

#include "core/frmMainClient.h"
#include "window/ControlGroup.h"

namespace vorlent {
namespace {

struct MenuRow {
  const char* title;
  /// How the names of its entries, an array of controls, begin.
  const char* array;
  bool checkable;
};

constexpr std::array Menus{MenuRow{"&File", "mnuFile(", false},
                           MenuRow{"&Settings", "Settings(", true},
                           MenuRow{"&Network", "mnuNetwork(", false}};

ControlGroup* connectionGroup(frmMainClient& form, const Binder& binder) {
  auto* group = new ControlGroup("Connection", binder);
  group->row("IP address", form.txtIP);
  group->row("First port", form.txtPort);
  group->row("Clients", form.txtClients);
  return group;
}

ControlGroup* sticksGroup(frmMainClient& form, const Binder& binder) {
  auto* group = new ControlGroup("Sticks", binder);
  group->row(form.chkStick);
  group->row("Number of sticks", form.txtSticks);
  group->row("Interval in ms", form.txtPoll);
  group->row("Stick", form.cboStick);
  group->row(form.cmdStick);
  group->row(form.chkBrake);
  return group;
}

ControlGroup* aircraftGroup(frmMainClient& form, const Binder& binder) {
  auto* group = new ControlGroup("Aircraft", binder);
  group->row("Select Aircraft", form.cboDir);
  group->row(form.Command1);
  group->row("Flap positions", form.txtFlaps);
  return group;
}

ControlGroup* fuelGroup(frmMainClient& form, const Binder& binder) {
  auto* group = new ControlGroup("Fuel", binder);
  group->row("Main fuel L USG", form.txtLeftMain);
  group->row("Main fuel R USG", form.txtRightMain);
  group->row("Aux fuel L USG", form.txtLeftAux);
  group->row("Aux fuel R USG", form.txtRightAux);
  group->row(form.chkFuel);
  group->row("Selector 1", form.txtFuelL).setReadOnly(true);
  group->row("Selector 2", form.txtFuelR).setReadOnly(true);
  return group;
}

ControlGroup* soundGroup(frmMainClient& form, const Binder& binder) {
  auto* group = new ControlGroup("Sound", binder);
  group->row(form.chkSound);
  group->row(form.cmdSound);
  return group;
}

ControlGroup* clientsGroup(frmMainClient& form, const Binder& binder) {
  auto* group = new ControlGroup("Clients", binder);
  group->row(form.cmdStop);
  group->row(form.cmdStopCts);
  return group;
}

}  // namespace

MainWindow::MainWindow(frmMainClient& form, const Guard& guard) : form_(form), guard_(guard) {
  setObjectName(QString::fromStdString(form.name()));
  follow(form.Caption, *this, [](MainWindow& window, const std::string& caption) {
    window.setWindowTitle(QString::fromStdString(caption));
  });
  const Binder binder(guard);
  addMenus(binder);
  layOut(binder);
  binder.bind(form.sbStatusBar, *statusBar());
  setTabOrders();
}

void MainWindow::addMenus(const Binder& binder) {
  for (const MenuRow& row : Menus) {
    QMenu* menu = menuBar()->addMenu(row.title);
    for (Control* control : form_.controls()) {
      auto* entry = dynamic_cast<MenuItem*>(control);
      if (!entry || !entry->name().starts_with(row.array)) continue;
      QAction* action = menu->addAction(QString());
      action->setCheckable(row.checkable);
      binder.bind(*entry, *action);
    }
  }
}

void MainWindow::layOut(const Binder& binder) {
  auto* middle = new QWidget;
  auto* grid = new QGridLayout(middle);
  grid->addWidget(sticksGroup(form_, binder), 0, 0, 2, 1);
  grid->addWidget(aircraftGroup(form_, binder), 2, 0, 2, 1);
  grid->addWidget(fuelGroup(form_, binder), 0, 1, 3, 1);
  grid->addWidget(soundGroup(form_, binder), 3, 1);
  grid->addWidget(connectionGroup(form_, binder), 0, 2);
  grid->addWidget(clientsGroup(form_, binder), 1, 2, 2, 1);
  auto* exit = new QPushButton;
  binder.bind(form_.cmdExit4, *exit);
  grid->addWidget(exit, 3, 2, Qt::AlignBottom);
  for (const int column : {0, 1, 2}) grid->setColumnStretch(column, 1);
  setCentralWidget(middle);
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
  guard_([this] { form_.close(); });
}

}  // namespace vorlent
