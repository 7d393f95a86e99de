#include "keeper/KeeperOptions.h"

#include "commandline/CommandLine.h"

namespace vorlent {

KeeperOptions readKeeperOptions(const std::vector<std::string>& arguments) {
  KeeperOptions options;
  CommandLine line("vorlent-keeper",
                   "Starts the Vorlent server when the simulator is there, and again when it ended "
                   "by itself.");
  line.option("--server", "NAME", options.program,
              "vorlentd, or vorlent with its window (vorlentd)")
      .check(oneOf({"vorlentd", "vorlent"}));
  line.footer(
      "Standard input goes to the server. The file keeper.txt beside its settings tells how it\n"
      "ended the last times, and what it said before.");
  line.read(arguments);
  return options;
}

}  // namespace vorlent
