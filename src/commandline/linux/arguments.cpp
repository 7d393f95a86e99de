#include "commandline/CommandLineEnd.h"

namespace vorlent {

std::vector<std::string> argumentsOf(int argumentCount, const char* const* arguments) {
  return {arguments + 1, arguments + argumentCount};
}

}  // namespace vorlent
