// Keeps the server running behind a simulator that comes and goes.

#include <chrono>
#include <cstdint>
#include <ctime>
#include <exception>
#include <string>
#include <thread>
#include <utility>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "base/print.h"
#include "commandline/CommandLineEnd.h"
#include "keeper/FailureReport.h"
#include "keeper/Keeper.h"
#include "keeper/KeeperOptions.h"
#include "platform/EndSignals.h"
#include "platform/ProgramFolder.h"
#include "platform/SystemBus.h"

namespace {

using namespace vorlent;
using namespace std::chrono_literals;

void say(const std::string& notice) { printError("vorlent-keeper: " + notice + "\n"); }

std::string now() {
  const std::time_t time = std::time(nullptr);
  char text[32] = "";
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", std::localtime(&time));
  return text;
}

std::int64_t uptime_ms() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

/// The status to end with.
int keep(Keeper& keeper, const volatile std::sig_atomic_t& ended) {
  bool asked = false;
  for (;;) {
    if (ended && !std::exchange(asked, true)) keeper.endInOrder();
    if (const auto status = keeper.step(uptime_ms())) return *status;
    std::this_thread::sleep_for(100ms);
  }
}

int run(const KeeperOptions& options, const volatile std::sig_atomic_t& ended) {
  const auto starter = openProgramStarter();
  const auto bus = openSimulatorBus();
  FailureReport report(joinedPath(programFolder(), "keeper.txt"));
  Keeper keeper(*starter,
                nativePath(joinedPath(executableFolder(), starter->fileName(options.program))),
                *bus, {print, say, [&report](const std::string& how, const std::string& words) {
                         try {
                           report.add(now(), how, words);
                         } catch (const RuntimeError& error) {
                           say("keeper.txt: " + error.description());
                         }
                       }});
  return keep(keeper, ended);
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const volatile std::sig_atomic_t& ended = catchEndSignals();
  try {
    return run(readKeeperOptions(argumentsOf(argumentCount, arguments)), ended);
  } catch (const CommandLineEnd& end) {
    return tell(end);
  } catch (const std::exception& error) {
    say(error.what());
    return 1;
  }
}
