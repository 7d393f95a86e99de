#pragma once

#include <string>
#include <vector>

namespace vorlent {

/// Raised when a program has nothing to do but to say something: its help, its version, or what is
/// wrong with its arguments.
struct CommandLineEnd {
  int status;  ///< to end with: 0, or 2 when an argument is wrong
  std::string text;
};

/// Without the program's name.
std::vector<std::string> argumentsOf(int argumentCount, const char* const* arguments);

/// Says it, on standard error when an argument is wrong, and gives the status.
int tell(const CommandLineEnd& end);

/// For a program that has no other options than --help and --version. Raises CommandLineEnd.
void expectNoOptions(const std::string& program, const std::string& description,
                     const std::vector<std::string>& arguments);

}  // namespace vorlent
