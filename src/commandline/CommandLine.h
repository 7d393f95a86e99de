#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "commandline/CommandLineEnd.h"

namespace vorlent {

/// The options of one of our programs. Every program has --help and --version, and of an option
/// that stands twice the second holds.
class CommandLine : public CLI::App {
 public:
  CommandLine(const std::string& program, const std::string& description);

  /// An option with a value, which is called `valueName` in the help.
  template <class Value>
  CLI::Option* option(const std::string& name, const std::string& valueName, Value& value,
                      const std::string& meaning) {
    return add_option(name, value, meaning)->type_name(valueName)->option_text(valueName);
  }
  CLI::Option* flag(const std::string& name, bool& value, const std::string& meaning) {
    return add_flag(name, value, meaning)->disable_flag_override();
  }

  /// Raises CommandLineEnd. The arguments are those without the program's name.
  void read(const std::vector<std::string>& arguments);
  /// Raises CommandLineEnd with these words.
  [[noreturn]] void refuse(const std::string& why) const;
};

/// Checks of an option's value. A number that passes is put down anew, so that whoever reads it
/// next reads the same: decimal, with a point.
CLI::Validator wholeNumberFrom(long long lowest, long long highest);
CLI::Validator numberFrom(double lowest, double highest);
CLI::Validator oneOf(const std::vector<std::string>& names);

}  // namespace vorlent
