#include <unistd.h>

#include <QCoreApplication>
#include <string_view>

#include "app/EnoughDescriptors.h"
#include "app/SystemServer.h"
#include "commandline/CommandLineEnd.h"
#include "console/ConsoleOperator.h"
#include "console/OperatorConsole.h"
#include "core/frmMainClient.h"
#include "core/modMain.h"
#include "platform/QueuedOutput.h"
#include "platform/TypingOnly.h"
#include "platform/qt/QtMessages.h"
#include "platform/qt/Signals.h"
#include "platform/qt/StandardInput.h"

namespace {

using namespace vorlent;

int run(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  QueuedOutput warnings(STDERR_FILENO);
  const QtMessages messages([&warnings](std::string_view line) { warnings.write(line); });
  QueuedOutput lines(STDOUT_FILENO);
  ConsoleOutput output([&lines](std::string_view line) { lines.write(line); });
  ConsoleOperator consoleOperator(output);
  const std::optional<std::string> folder = programFolderOrBox(consoleOperator);
  if (!folder) return 1;
  TypingOnly chooser(systemDrives());
  SystemServer host(*folder, consoleOperator, chooser);
  Server& server = host.server();
  FailureDomain& domain = server.failureDomain;

  OperatorConsole console(output, server.lastingForms(),
                          [&server] { return server.sticks.forms(); });
  const StandardInput input(
      [&](const std::string& line) {
        host.hand({Deed::Line, {}, {}, line});
        domain.run([&] { console.execute(line); });
      },
      [] {});
  const Signals termination([&](int) {
    host.hand({Deed::ExitSignal, {}, {}, {}});
    domain.run([&] { server.mainClient->cmdExit4.press(); });
  });

  domain.run([&] { server.main->Main(); });
  return host.eventLoop().exec();
}

}  // namespace

/// The server without a window: what an operator would see goes to standard output, and his hand is
/// standard input.
int main(int argc, char** argv) {
  try {
    expectNoOptions("vorlentd",
                    "The server of a cockpit, without a window; help lists its commands.",
                    argumentsOf(argc, argv));
    expectDescriptors("vorlentd");
  } catch (const CommandLineEnd& end) {
    return tell(end);
  }
  return run(argc, argv);
}
