#include "replay/ReplayConsole.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "replay/PlayClock.h"

namespace vorlent {
namespace {

/// What the answer says behind "error: ".
struct Refusal {
  std::string why;
};

double numberFrom(const std::string& operand, double lowest, double highest) {
  const auto number = numeric(operand);
  if (!number || !(*number >= lowest && *number <= highest))
    throw Refusal{"it takes a number from " + doubleText(lowest) + " to " + doubleText(highest) +
                  ", not \"" + operand + "\""};
  return *number;
}

/// Tenths of a second are enough for an eye.
std::string tenths(double seconds) {
  const auto count = static_cast<long long>(seconds * 10);
  return std::to_string(count / 10) + "." + std::to_string(count % 10);
}

std::string where(const PlayClock& clock) {
  return tenths(clock.position_s()) + " of " + tenths(clock.length_s()) + " s, " +
         (clock.playing() ? "playing" : "standing");
}

bool isOn(const std::string& operand) {
  if (operand != "on" && operand != "off")
    throw Refusal{"it takes on or off, not \"" + operand + "\""};
  return operand == "on";
}

struct PlayCommand {
  std::string_view verb;
  std::string_view operand;  ///< as the help shows it, empty for a command without one
  void (*carryOut)(PlayClock& clock, const std::string& operand);
};

constexpr std::array PlayCommands{
    PlayCommand{"pause", "", [](PlayClock& clock, const std::string&) { clock.pause(); }},
    PlayCommand{"play", "", [](PlayClock& clock, const std::string&) { clock.play(); }},
    PlayCommand{"seek", " SECONDS",
                [](PlayClock& clock, const std::string& operand) {
                  clock.seek(numberFrom(operand, 0, clock.length_s()));
                }},
    PlayCommand{"speed", " FACTOR",
                [](PlayClock& clock, const std::string& operand) {
                  clock.speed(numberFrom(operand, PlayClock::Slowest, PlayClock::Fastest));
                }},
    PlayCommand{"loop", " on|off",
                [](PlayClock& clock, const std::string& operand) { clock.loop(isOn(operand)); }},
};

std::string help() {
  std::string all;
  for (const PlayCommand& command : PlayCommands)
    all += std::string(command.verb) + std::string(command.operand) + ", ";
  return all + "where, exit, help";
}

void carryOut(PlayClock& clock, const std::string& verb, const std::string& operand) {
  const auto* const command =
      std::find_if(PlayCommands.begin(), PlayCommands.end(),
                   [&](const PlayCommand& row) { return row.verb == verb; });
  if (command == PlayCommands.end()) throw Refusal{"no command \"" + verb + "\""};
  if (command->operand.empty() && !operand.empty()) throw Refusal{"too much: " + operand};
  command->carryOut(clock, operand);
}

}  // namespace

std::string ReplayConsole::execute(std::string_view commandLine) {
  const std::string line = trimmed(commandLine);
  if (line == "help") return "= " + help();
  if (line == "where") return "= " + where(clock_);
  ended_ = ended_ || line == "exit";
  if (line == "exit") return "=";
  const auto blank = std::min(line.find(' '), line.size());
  try {
    carryOut(clock_, line.substr(0, blank), trimmed(std::string_view(line).substr(blank)));
    return "=";
  } catch (const Refusal& refusal) {
    return "error: " + refusal.why;
  }
}

}  // namespace vorlent
