#include "replay/ReplayOptions.h"

#include "commandline/CommandLine.h"
#include "replay/PlayClock.h"
#include "replay/storeVariables.h"

namespace vorlent {
namespace {

/// Of the task and the words beside the options.
struct Asked {
  bool check = false;
  bool csv = false;
  bool plot = false;
  std::vector<std::string> words;
};

ReplayOptions::Task taskOf(const Asked& asked) {
  if (asked.check) return ReplayOptions::Task::Check;
  if (asked.csv) return ReplayOptions::Task::Csv;
  return asked.plot ? ReplayOptions::Task::Plot : ReplayOptions::Task::Play;
}

/// Raises what storeVariableNamed() raises for a name that is none.
void expectNumbers(const CommandLine& line, const std::vector<std::string>& variables) {
  for (const std::string& name : variables)
    if (storeVariableNamed(name).isText())
      line.refuse(storeVariableNamed(name).name() +
                  " is a text, which cannot be drawn; --csv prints it");
}

/// The recording stands last, the variables before it.
void takeWords(const CommandLine& line, const Asked& asked, ReplayOptions& options) {
  const bool series = asked.csv || asked.plot;
  if (asked.words.empty() || asked.words.back().empty())
    line.refuse("the name of a recording is missing");
  if (series && asked.words.size() == 1)
    line.refuse("it takes the names of variables, and the recording behind them");
  if (!series && asked.words.size() > 1) line.refuse("it takes one recording");
  options.file = asked.words.back();
  options.variables.assign(asked.words.begin(), asked.words.end() - 1);
  if (asked.plot) expectNumbers(line, options.variables);
}

}  // namespace

ReplayOptions readReplayOptions(const std::vector<std::string>& arguments) {
  ReplayOptions options;
  Asked asked;
  CommandLine line("vorlent-replay",
                   "Plays a recording of the server behind the simulator interface, or checks the "
                   "server against it.");
  line.option("FILE", "", asked.words, "The recording; for --csv and --plot variables before it")
      .takeAll();
  line.option("--speed", "FACTOR", options.speed,
              "Seconds of the recording in a second, 0.1 to 20 (1)")
      .check(numberFrom(PlayClock::Slowest, PlayClock::Fastest));
  line.flag("--loop", options.loop, "Begin anew at the end");
  CommandLine::Option check = line.flag(
      "--check", asked.check, "Run the server on it and compare all that it writes, to the byte");
  CommandLine::Option csv =
      line.flag("--csv", asked.csv, "Print variables of the server at each poll, as CSV");
  line.flag("--plot", asked.plot, "Print a script for gnuplot that draws them")
      .excludes(check)
      .excludes(csv);
  csv.excludes(check);
  line.footer(
      "While it plays, standard input takes pause, play, seek SECONDS, speed FACTOR, loop on|off,\n"
      "where, exit and help.\n\n"
      "Examples: vorlent-replay --speed 4 flight.sqlite\n"
      "          vorlent-replay --plot Ias AircraftAltitude flight.sqlite | gnuplot -p");
  line.read(arguments);
  takeWords(line, asked, options);
  options.task = taskOf(asked);
  return options;
}

}  // namespace vorlent
