// A stand-in for a game controller that is moved from the command line.

#include <exception>
#include <string>

#include "base/print.h"
#include "commandline/CommandLineEnd.h"
#include "stick/StickProgram.h"

namespace {

using namespace vorlent;

void complain(const std::string& text) { printError("vorlent-stick: " + text + "\n"); }

void run(const StickOptions& options) {
  const auto device = openStickDevice(options.name);
  print("ready\n");
  StickProgram(*device, complain).run(options);
}

}  // namespace

int main(int argumentCount, char** arguments) {
  try {
    run(stickOptionsFrom(argumentsOf(argumentCount, arguments)));
    return 0;
  } catch (const CommandLineEnd& end) {
    return tell(end);
  } catch (const std::exception& error) {
    complain(error.what());
    return 1;
  }
}
