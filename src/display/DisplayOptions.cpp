#include "display/DisplayOptions.h"

#include "commandline/CommandLine.h"
#include "display/Greeting.h"
#include "display/hostChecks.h"

namespace vorlent {
namespace {

constexpr int LongestRun_s = 1'000'000;

}  // namespace

DisplayOptions readDisplayOptions(const std::vector<std::string>& arguments) {
  DisplayOptions options;
  CommandLine line("vorlent-display",
                   "Shows what a Vorlent server sends: a live page on a terminal, else a line a "
                   "second.");
  line.option("HOST", "", options.host, "Name or address of the server; without it this machine")
      .check(whyNoHost);
  line.option("PORT", "", options.port, "UDP port of the session (5000)")
      .check(wholeNumberFrom(1, 65535));
  line.option("--interval", "MS", options.interval_ms,
              "Ask for a record every so many milliseconds, 1 to 65535 (100)")
      .check(wholeNumberFrom(MinInterval_ms, MaxInterval_ms));
  line.option("--name", "NAME", options.name,
              "Machine name in the greeting: the machine whose share holds the\n"
              "flight plan; without it this machine's own")
      .check(whyNoMachine);
  line.flag("--print", options.print, "Print one record as a list of named fields and end");
  line.option("--seconds", "N", options.seconds,
              "End after N seconds, with status 1 when no record came")
      .check(wholeNumberFrom(1, LongestRun_s));
  line.footer(
      "Lines typed are commands: kind, id and value, such as \"P 169 1\"; kinds are P (button),\n"
      "T (toggle), E (encoder) and any other text (analog). docs/display-protocol.md tells more.");
  line.read(arguments);
  return options;
}

}  // namespace vorlent
