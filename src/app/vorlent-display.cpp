// The display client: shows what a server sends and sends what the user types.

#include <QCoreApplication>
#include <string>

#include "app/DisplayInput.h"
#include "app/EnoughDescriptors.h"
#include "base/RuntimeError.h"
#include "base/Terminal.h"
#include "base/print.h"
#include "commandline/CommandLineEnd.h"
#include "display/DisplayOptions.h"
#include "display/DisplayProgram.h"
#include "platform/qt/HostAddresses.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtNetwork.h"
#include "platform/qt/Signals.h"

namespace {

using namespace vorlent;

int run(int argc, char** argv, const DisplayOptions& options) {
  expectDescriptors("vorlent-display");
  QCoreApplication application(argc, argv);
  QtEventLoop loop;
  QtNetwork network;
  const bool page = outputIsTerminal() && !options.print;
  const bool edited = page && inputIsTerminal();
  DisplayProgram program(loop, network, options, hostAddresses(options.host),
                         {page, print, printError, terminalWidth,
                          inputShowsPrompt(edited) ? "" : DisplayProgram::Prompt});
  const Signals termination([&loop](int) { loop.end(0); });
  program.start();
  const auto input = readDisplayInput(edited, DisplayProgram::Prompt,
                                      [&program](const std::string& line) { program.typed(line); });
  return loop.exec();
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv, readDisplayOptions(argumentsOf(argc, argv)));
  } catch (const CommandLineEnd& end) {
    return tell(end);
  } catch (const RuntimeError& error) {
    printError("vorlent-display: " + error.description() + "\n");
    return 1;
  }
}
