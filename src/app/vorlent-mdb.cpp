// The helper of the server that reads performance data out of an Access database. It is a program
// of its own because the library for it may hang or crash on a damaged file.

#include <cstdio>
#include <exception>

#include "commandline/CommandLineEnd.h"
#include "database/DatabaseHelper.h"

int main(int argumentCount, char** arguments) {
  using namespace vorlent;
  try {
    expectNoOptions(
        "vorlent-mdb",
        "A part of the server, which starts it: the first row of a database's table PerfData.",
        argumentsOf(argumentCount, arguments));
    answerDatabaseQuestion();
    return 0;
  } catch (const CommandLineEnd& end) {
    return tell(end);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "vorlent-mdb: %s\n", error.what());
    return 1;
  }
}
