// Checks a simulator, or a bridge to one, against what the server needs of it.

#include <chrono>
#include <exception>
#include <string>
#include <thread>

#include "base/print.h"
#include "check/BridgeCheck.h"
#include "check/CheckOptions.h"
#include "commandline/CommandLineEnd.h"
#include "platform/SystemBus.h"

namespace {

using namespace vorlent;

void pauseFor(int duration_ms) {
  std::this_thread::sleep_for(std::chrono::milliseconds(duration_ms));
}

}  // namespace

int main(int argumentCount, char** arguments) {
  try {
    const auto settings = readCheckOptions(argumentsOf(argumentCount, arguments));
    const auto bus = openSimulatorBus();
    OffsetLink link(*bus, pauseFor);
    return BridgeCheck(link, settings, pauseFor, print).run() ? 0 : 1;
  } catch (const CommandLineEnd& end) {
    return tell(end);
  } catch (const std::exception& error) {
    printError(std::string("vorlent-check: ") + error.what() + "\n");
    return 1;
  }
}
