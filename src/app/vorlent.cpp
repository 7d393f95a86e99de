#include <unistd.h>

#include <QApplication>
#include <string_view>

#include "app/EnoughDescriptors.h"
#include "app/SystemServer.h"
#include "cockpits/frmDir.h"
#include "cockpits/frmNew.h"
#include "cockpits/frmSave.h"
#include "cockpits/frmZip.h"
#include "commandline/CommandLineEnd.h"
#include "core/FrmTip.h"
#include "core/frmMainClient.h"
#include "core/frmStatus.h"
#include "core/modMain.h"
#include "extras/frmSound.h"
#include "mcp/frmTestMCP.h"
#include "platform/QueuedOutput.h"
#include "platform/qt/QtMessages.h"
#include "platform/qt/Signals.h"
#include "window/MainWindow.h"
#include "window/QtFileChooser.h"
#include "window/QtOperator.h"
#include "window/SoundWindow.h"
#include "window/TestMcpWindow.h"
#include "window/TipWindow.h"
#include "window/cockpitWindows.h"
#include "window/stickWindows.h"

namespace {

using namespace vorlent;

int run(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QueuedOutput warnings(STDERR_FILENO);
  const QtMessages messages([&warnings](std::string_view line) { warnings.write(line); });
  QtOperator windows;
  const std::optional<std::string> folder = programFolderOrBox(windows);
  if (!folder) return 1;
  QtFileChooser chooser(systemDrives());
  SystemServer host(*folder, windows, chooser);
  Server& server = host.server();
  FailureDomain& domain = server.failureDomain;

  const Guard guard([&domain](const std::function<void()>& work) { domain.run(work); },
                    [&host](Deed deed, const std::string& form, const std::string& control,
                            const std::string& value) {
                      host.hand({deed, form, control, value});
                    });
  MainWindow mainWindow(*server.mainClient, *server.status, guard);
  TipWindow tipWindow(*server.tip, guard);
  windows.add(*server.mainClient, mainWindow);
  windows.add(*server.tip, tipWindow);
  TestMcpWindow testMcpWindow(*server.testMcp, guard);
  windows.add(*server.testMcp, testMcpWindow);
  const auto newCockpit = newWindow(*server.newCockpit, guard);
  windows.add(*server.newCockpit, *newCockpit);
  const auto saveTemplate = saveWindow(*server.saveTemplate, guard);
  windows.add(*server.saveTemplate, *saveTemplate);
  const auto importOld = importWindow(*server.importOld, guard);
  windows.add(*server.importOld, *importOld);
  const auto zip = zipWindow(*server.zip, guard);
  windows.add(*server.zip, *zip);
  SoundWindow soundWindow(*server.soundForm, guard);
  windows.add(*server.soundForm, soundWindow);
  windows.makeWindows([&guard](Form& form) { return makeStickWindow(form, guard); });
  const auto exit = [&]() noexcept {
    domain.run([&] {
      host.hand({Deed::ExitSignal, {}, {}, {}});
      server.mainClient->cmdExit4.press();
    });
  };
  const Signals termination([&](int) { windows.leave(exit); });
  // The end of a session waits for nobody, not even for an open box.
  QObject::connect(&application, &QCoreApplication::aboutToQuit, exit);

  domain.run([&] { server.main->Main(); });
  return host.eventLoop().exec();
}

}  // namespace

/// The server with its windows.
int main(int argc, char** argv) {
  try {
    expectNoOptions("vorlent", "The server of a cockpit, with its window.",
                    argumentsOf(argc, argv));
    expectDescriptors("vorlent");
  } catch (const CommandLineEnd& end) {
    return tell(end);
  }
  return run(argc, argv);
}
