#include "web/WebOptions.h"

#include "base/files.h"
#include "commandline/CommandLine.h"
#include "display/Greeting.h"
#include "display/hostChecks.h"

namespace vorlent {
namespace {

std::string whyNoShare(const std::string& text) {
  return folderExists(text) ? "" : "there is no folder \"" + text + "\"";
}

}  // namespace

WebOptions readWebOptions(const std::vector<std::string>& arguments) {
  WebOptions options;
  CommandLine line("vorlent-web", "Shows what a Vorlent server sends as a cockpit in the browser.");
  line.option("HOST", "", options.host, "Name or address of the server; without it this machine")
      .check(whyNoHost);
  line.option("PORT", "", options.port, "UDP port of the session (5000)")
      .check(wholeNumberFrom(1, 65535));
  line.option("--listen", "ADDRESS", options.listen,
              "Own address at which browsers find the page, 0.0.0.0 for all of them.\n"
              "Without it 127.0.0.1, which only this machine reaches; with any other\n"
              "the page asks for the token that is printed at the start")
      .check(whyNoAddress);
  line.option("--web-port", "PORT", options.webPort,
              "TCP port of the page, 0 for any free one (8737)")
      .check(wholeNumberFrom(0, 65535));
  line.option("--interval", "MS", options.interval_ms,
              "Ask for a record every so many milliseconds, 1 to 65535 (50)")
      .check(wholeNumberFrom(MinInterval_ms, MaxInterval_ms));
  line.option("--name", "NAME", options.name,
              "Machine name in the greeting: the machine whose share holds the\n"
              "flight plan; without it this machine's own")
      .check(whyNoMachine);
  line.option("--share", "FOLDER", options.share,
              "That share, as a folder here: its FMS has the plan that is drawn")
      .check(whyNoShare);
  line.read(arguments);
  return options;
}

}  // namespace vorlent
