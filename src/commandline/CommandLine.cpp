#include "commandline/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <optional>
#include <sstream>

#include "base/print.h"
#include "base/text.h"

namespace vorlent {
namespace {

std::string refusal(const std::string& program, const std::string& why) {
  return program + ": " + why + "\nSee " + program + " --help.\n";
}

std::string rangeText(const std::string& kind, const std::string& lowest,
                      const std::string& highest, const std::string& text) {
  return "it takes a " + kind + " from " + lowest + " to " + highest + ", not \"" + text + "\"";
}

}  // namespace

int tell(const CommandLineEnd& end) {
  (end.status == 0 ? print : printError)(end.text);
  return end.status;
}

void expectNoOptions(const std::string& program, const std::string& description,
                     const std::vector<std::string>& arguments) {
  CommandLine(program, description).read(arguments);
}

CommandLine::CommandLine(const std::string& program, const std::string& description)
    : app_(std::make_unique<CLI::App>(description, program)) {
  app_->option_defaults()->take_last();
  app_->set_help_flag("--help", "Show this");
  app_->set_version_flag("--version", program + " " VORLENT_VERSION, "Show the version");
  app_->get_formatter()->column_width(25);
  // A slash begins a path on every system.
  app_->allow_windows_style_options(false);
  app_->failure_message([](const CLI::App* app, const CLI::Error& error) {
    return refusal(app->get_name(), error.what());
  });
}

CommandLine::~CommandLine() = default;

CommandLine::Option CommandLine::add(const std::string& name, const std::string& valueName,
                                     Target target, const std::string& meaning) {
  const auto offer = [&](auto* value) { return app_->add_option(name, *value, meaning); };
  CLI::Option& option = *std::visit(offer, target);
  option.type_name(valueName)->option_text(valueName);
  return Option(option);
}

CommandLine::Option CommandLine::flag(const std::string& name, bool& value,
                                      const std::string& meaning) {
  return Option(*app_->add_flag(name, value, meaning)->disable_flag_override());
}

void CommandLine::footer(const std::string& text) { app_->footer(text); }

void CommandLine::read(const std::vector<std::string>& arguments) {
  try {
    // The library takes its arguments from the end of the list.
    app_->parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::ParseError& error) {
    std::ostringstream out;
    std::ostringstream wrong;
    app_->exit(error, out, wrong);
    if (wrong.str().empty()) throw CommandLineEnd{0, out.str()};
    throw CommandLineEnd{2, wrong.str()};
  }
}

void CommandLine::refuse(const std::string& why) const {
  throw CommandLineEnd{2, refusal(app_->get_name(), why)};
}

CommandLine::Option& CommandLine::Option::check(const TextCheck& check) {
  option_.transform(CLI::Validator(check, ""));
  return *this;
}

CommandLine::Option& CommandLine::Option::takeAll() {
  option_.take_all();
  return *this;
}

CommandLine::Option& CommandLine::Option::group(const std::string& heading) {
  option_.group(heading);
  return *this;
}

CommandLine::Option& CommandLine::Option::excludes(const Option& other) {
  option_.excludes(&other.option_);
  return *this;
}

TextCheck wholeNumberFrom(long long lowest, long long highest) {
  return [lowest, highest](std::string& text) -> std::string {
    long long value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < lowest ||
        value > highest)
      return rangeText("whole number", std::to_string(lowest), std::to_string(highest), text);
    text = std::to_string(value);
    return "";
  };
}

TextCheck numberFrom(double lowest, double highest) {
  return [lowest, highest](std::string& text) -> std::string {
    const std::optional<double> value = numeric(text);
    if (!value || !(*value >= lowest && *value <= highest))
      return rangeText("number", doubleText(lowest), doubleText(highest), text);
    text = doubleText(*value);
    return "";
  };
}

TextCheck oneOf(const std::vector<std::string>& names) {
  return [names](const std::string& text) -> std::string {
    if (std::find(names.begin(), names.end(), text) != names.end()) return "";
    return "it is one of " + CLI::detail::join(names, ", ") + ", not \"" + text + "\"";
  };
}

}  // namespace vorlent
