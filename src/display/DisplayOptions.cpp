#include "display/DisplayOptions.h"

#include <charconv>
#include <string>

#include "base/CommandLine.h"
#include "base/text.h"
#include "display/Greeting.h"

namespace vorlent {
namespace {

constexpr int LongestRun_s = 1'000'000;

int wholeNumber(std::string_view text, int smallest, int largest, const std::string& what) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || value < smallest ||
      value > largest)
    refuseArgument(what + " is a whole number from " + std::to_string(smallest) + " to " +
                   std::to_string(largest) + ", not \"" + std::string(text) + "\"");
  return value;
}

bool isAddressPart(std::string_view text) {
  unsigned value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool leadingZero = text.size() > 1 && text.front() == '0';
  return error == std::errc() && end == text.data() + text.size() && value <= 255 && !leadingZero;
}

bool isIpv4Address(std::string_view text) {
  for (int part = 1; part < 4; ++part) {
    const auto dot = text.find('.');
    if (dot == std::string_view::npos || !isAddressPart(text.substr(0, dot))) return false;
    text.remove_prefix(dot + 1);
  }
  return isAddressPart(text);
}

std::string host(std::string_view text) {
  if (!isIpv4Address(text))
    refuseArgument("HOST is an address such as 192.168.1.20, not \"" + std::string(text) + "\"");
  return std::string(text);
}

std::string machineName(std::string_view text) {
  if (!isHostName(text))
    refuseArgument("the name of a machine is made of letters, digits, \"-\", \"_\" and \".\"");
  return std::string(text);
}

/// Reads the arguments one by one.
class Arguments {
 public:
  explicit Arguments(std::span<const std::string_view> all) : line_(all) {}

  DisplayOptions read() {
    while (!line_.empty()) take(line_.next());
    return options_;
  }

 private:
  void take(std::string_view argument) {
    if (argument == "--help")
      options_.help = true;
    else if (argument == "--print")
      options_.print = true;
    else if (argument == "--interval")
      options_.interval_ms = wholeNumber(line_.valueOf(argument), MinInterval_ms, MaxInterval_ms,
                                         "the interval in milliseconds");
    else if (argument == "--seconds")
      options_.seconds =
          wholeNumber(line_.valueOf(argument), 1, LongestRun_s, "the number of seconds");
    else if (argument == "--name")
      options_.name = machineName(line_.valueOf(argument));
    else if (argument.starts_with("-"))
      refuseArgument("there is no option " + std::string(argument));
    else
      takePositional(argument);
  }

  void takePositional(std::string_view argument) {
    ++positionals_;
    if (positionals_ == 1)
      options_.host = host(argument);
    else if (positionals_ == 2)
      options_.port = static_cast<std::uint16_t>(wholeNumber(argument, 1, 65535, "PORT"));
    else
      refuseArgument("there is no place for \"" + std::string(argument) + "\"");
  }

  CommandLine line_;
  DisplayOptions options_;
  int positionals_ = 0;
};

}  // namespace

DisplayOptions readDisplayOptions(std::span<const std::string_view> arguments) {
  return Arguments(arguments).read();
}

std::string_view displayUsage() {
  return "usage: vorlent-display [HOST] [PORT] [options]\n"
         "\n"
         "Shows what a Vorlent server sends: a live page on a terminal, else a line a second.\n"
         "\n"
         "  HOST           address of the server; this machine's own without it\n"
         "  PORT           UDP port of the session; 5000 without it\n"
         "  --interval MS  ask for a record every so many milliseconds (1 to 65535; 100)\n"
         "  --name NAME    machine name in the greeting: the machine whose share holds the flight\n"
         "                 plan; this machine's own without it\n"
         "  --print        print one record as a list of named fields and end\n"
         "  --seconds N    end after N seconds, with status 1 when no record came\n"
         "  --help         show this\n"
         "\n"
         "Lines typed are commands: kind, id and value, such as \"P 169 1\"; kinds are P "
         "(button),\n"
         "T (toggle), E (encoder) and any other text (analog). docs/display-protocol.md tells "
         "more.\n";
}

}  // namespace vorlent
