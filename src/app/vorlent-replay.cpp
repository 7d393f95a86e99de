// A recording of the server: played in the simulator's place, checked, or as numbers.

#include <chrono>
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/print.h"
#include "commandline/CommandLineEnd.h"
#include "platform/EndSignals.h"
#include "platform/InputLines.h"
#include "platform/RequestListener.h"
#include "recording/sqlite/RecordingReader.h"
#include "replay/Player.h"
#include "replay/ReplayConsole.h"
#include "replay/ReplayOptions.h"
#include "replay/check.h"
#include "replay/series.h"
#include "replay/storeVariables.h"

namespace {

using namespace vorlent;

constexpr int Interval_ms = 8;

void complain(const std::string& text) { printError("vorlent-replay: " + text + "\n"); }

void play(RecordingReader& reader, const ReplayOptions& options,
          const volatile std::sig_atomic_t& ended) {
  using Clock = std::chrono::steady_clock;
  Player player(reader);
  player.clock().speed(options.speed);
  player.clock().loop(options.loop);
  ReplayConsole console(player.clock());
  InputLines input(readStandardInput());
  const auto listener =
      listenForRequests({"UIPCMAIN", player.isXPlane() ? "X-System" : "FS98MAIN"},
                        [&player](std::span<std::byte> block) { return player.answer(block); });
  print("ready\n");
  auto last = Clock::now();
  bool whole = true;
  while (!ended && !console.ended()) {
    listener->serve(Interval_ms);
    const auto now = Clock::now();
    player.advance(std::chrono::duration<double>(now - last).count());
    last = now;
    if (std::exchange(whole, reader.fault().empty()) && !whole) complain(reader.fault());
    while (const auto line = input.next()) print(console.execute(*line) + "\n");
  }
}

std::vector<const StoreVariable*> variablesOf(const ReplayOptions& options) {
  std::vector<const StoreVariable*> variables;
  for (const std::string& name : options.variables) variables.push_back(&storeVariableNamed(name));
  return variables;
}

void printSeries(RecordingReader& reader, const ReplayOptions& options) {
  const auto variables = variablesOf(options);
  const auto printer = [](std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
  };
  if (options.task == ReplayOptions::Task::Csv)
    printCsv(reader, variables, printer);
  else
    printPlot(reader, variables, printer);
}

/// The status to end with.
int run(const ReplayOptions& options, const volatile std::sig_atomic_t& ended) {
  RecordingReader reader(options.file);
  switch (options.task) {
    case ReplayOptions::Task::Play:
      play(reader, options, ended);
      return 0;
    case ReplayOptions::Task::Check: {
      const CheckResult result = checkRecording(reader);
      print(result.report);
      return result.same ? 0 : 1;
    }
    default:
      printSeries(reader, options);
      return 0;
  }
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const volatile std::sig_atomic_t& ended = catchEndSignals();
  try {
    return run(readReplayOptions(argumentsOf(argumentCount, arguments)), ended);
  } catch (const CommandLineEnd& end) {
    return tell(end);
  } catch (const std::exception& error) {
    complain(error.what());
    return 1;
  }
}
