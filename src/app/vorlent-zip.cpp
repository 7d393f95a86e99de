// The helper of the server that packs and unpacks zip files. It is a program of its own because the
// files come from anywhere, and the work may take long.

#include <clocale>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "commandline/CommandLine.h"
#include "zip/ZipArchive.h"

int main(int argumentCount, char** arguments) {
  using namespace vorlent;
  // The library turns the names in a zip into those of this system by it. Windows' C library has no
  // UTF-8: there it is the code page of the user's language.
  if (!std::setlocale(LC_CTYPE, "C.UTF-8")) std::setlocale(LC_CTYPE, "");
  try {
    std::vector<std::string> order;
    CommandLine line("vorlent-zip",
                     "A part of the server, which starts it: folders in zip files.\n"
                     "pack FOLDER ZIP, or unpack ZIP FOLDER.");
    line.option("ORDER", "", order, "What to do, and with what").takeAll();
    line.read(argumentsOf(argumentCount, arguments));
    if (order.size() != 3) line.refuse("it takes an order, a folder and a file");
    if (order[0] == "pack")
      packFolder(order[1], order[2]);
    else if (order[0] == "unpack")
      unpackZip(order[1], order[2]);
    else
      line.refuse("no order \"" + order[0] + "\"");
    return 0;
  } catch (const CommandLineEnd& end) {
    return tell(end);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
