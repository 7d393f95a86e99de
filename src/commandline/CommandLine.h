#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "commandline/CommandLineEnd.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace vorlent {

/// Empty for a text that an option may take, else why not. It may change the text that is read on.
using TextCheck = std::function<std::string(std::string&)>;

/// The options of one of our programs. Every program has --help and --version, and of an option
/// that stands twice the second holds.
class CommandLine {
 public:
  /// Where the value of an option goes; what is not given stays as it is.
  using Target = std::variant<std::string*, std::vector<std::string>*, int*, unsigned*,
                              std::uint16_t*, double*, std::optional<int>*, std::optional<double>*>;

  /// What more is to say of an option.
  class Option {
   public:
    explicit Option(CLI::Option& option) : option_(option) {}
    Option& check(const TextCheck& check);
    /// Takes every text that stands for it, not the last alone.
    Option& takeAll();
    /// Stands in the help under a heading of its own.
    Option& group(const std::string& heading);
    Option& excludes(const Option& other);

   private:
    CLI::Option& option_;
  };

  CommandLine(const std::string& program, const std::string& description);
  ~CommandLine();

  /// An option with a value, which is called `valueName` in the help.
  template <class Value>
  Option option(const std::string& name, const std::string& valueName, Value& value,
                const std::string& meaning) {
    return add(name, valueName, &value, meaning);
  }
  Option flag(const std::string& name, bool& value, const std::string& meaning);
  /// What the help ends with.
  void footer(const std::string& text);

  /// Raises CommandLineEnd. The arguments are those without the program's name.
  void read(const std::vector<std::string>& arguments);
  /// Raises CommandLineEnd with these words.
  [[noreturn]] void refuse(const std::string& why) const;

 private:
  Option add(const std::string& name, const std::string& valueName, Target target,
             const std::string& meaning);

  std::unique_ptr<CLI::App> app_;
};

/// A number that passes is put down anew, so that whoever reads it next reads the same: decimal,
/// with a point.
TextCheck wholeNumberFrom(long long lowest, long long highest);
TextCheck numberFrom(double lowest, double highest);
TextCheck oneOf(const std::vector<std::string>& names);

}  // namespace vorlent
