#include "check/CheckOptions.h"

#include "commandline/CommandLine.h"

namespace vorlent {

BridgeCheck::Settings readCheckOptions(const std::vector<std::string>& arguments) {
  BridgeCheck::Settings settings;
  bool readOnly = false;
  CommandLine line("vorlent-check",
                   "Checks a simulator, or a bridge to one, against what the server needs of it.\n"
                   "Ends with status 0 when all is right and with 1 when something is wrong.");
  line.flag("--read-only", readOnly, "Write nothing; without it controls are moved and put back");
  line.option("--seconds", "N", settings.watch_s,
              "Look for what moves for N seconds, 1 to 3600 (3)")
      .check(wholeNumberFrom(1, 3600));
  line.footer("docs/simulator-interface.md tells more.");
  line.read(arguments);
  settings.writes = !readOnly;
  return settings;
}

}  // namespace vorlent
