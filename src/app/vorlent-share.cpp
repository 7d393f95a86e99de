// The helper of the server that reads and writes files of other machines. It is a program of its
// own because the library for it may hang or crash, which must not touch the server.

#include <cstdio>
#include <exception>

#include "commandline/CommandLineEnd.h"
#include "share/ShareHelper.h"

int main(int argumentCount, char** arguments) {
  using namespace vorlent;
  try {
    expectNoOptions("vorlent-share",
                    "A part of the server, which starts it: files of other machines.",
                    argumentsOf(argumentCount, arguments));
    answerShareQuestions(MessageSocket(Descriptor(STDIN_FILENO)));
    return 0;
  } catch (const CommandLineEnd& end) {
    return tell(end);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "vorlent-share: %s\n", error.what());
    return 1;
  }
}
