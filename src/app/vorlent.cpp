#include <QApplication>

#include "app/LinuxServer.h"
#include "core/FrmTip.h"
#include "core/frmMainClient.h"
#include "core/frmStatus.h"
#include "core/modMain.h"
#include "platform/qt/Signals.h"
#include "window/MainWindow.h"
#include "window/QtOperator.h"
#include "window/TipWindow.h"

/// The server with its windows.
int main(int argc, char** argv) {
  using namespace vorlent;
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QtOperator windows;
  LinuxServer host(QCoreApplication::applicationDirPath().toStdString(), windows);
  Server& server = host.server();
  FailureDomain& domain = server.failureDomain;

  const Guard guard = [&domain](const std::function<void()>& work) { domain.run(work); };
  MainWindow mainWindow(*server.mainClient, *server.status, guard);
  TipWindow tipWindow(*server.tip, guard);
  windows.add(*server.mainClient, mainWindow);
  windows.add(*server.tip, tipWindow);
  const Signals termination([&](int) {
    windows.leave([&] { domain.run([&] { server.mainClient->cmdExit4.press(); }); });
  });

  domain.run([&] { server.main->Main(); });
  return host.eventLoop().exec();
}
