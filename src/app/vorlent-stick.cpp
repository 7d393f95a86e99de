// A stand-in for a game controller that is moved from the command line.

#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

#include "commandline/CommandLineEnd.h"
#include "stick/StickProgram.h"

namespace {

using namespace vorlent;

void print(std::FILE* to, std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), to);
  std::fflush(to);
}

void complain(const std::string& text) { print(stderr, "vorlent-stick: " + text + "\n"); }

void run(const StickOptions& options) {
  const auto device = openStickDevice(options.name);
  print(stdout, "ready\n");
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
