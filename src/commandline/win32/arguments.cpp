#include <windows.h>
// After windows.h.
#include <shellapi.h>

#include <memory>

#include "base/systemPath.h"
#include "commandline/CommandLineEnd.h"

namespace vorlent {
namespace {

struct Free {
  void operator()(wchar_t** arguments) const { LocalFree(arguments); }
};

}  // namespace

/// What main() is given has lost the letters that the system's code page does not have.
std::vector<std::string> argumentsOf(int, const char* const*) {
  int count = 0;
  const std::unique_ptr<wchar_t*, Free> all(CommandLineToArgvW(GetCommandLineW(), &count));
  std::vector<std::string> arguments;
  for (int i = 1; all && i < count; ++i) arguments.push_back(nameOf(all.get()[i]));
  return arguments;
}

}  // namespace vorlent
