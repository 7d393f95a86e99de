#include "stick/StickOptions.h"

#include <cmath>

#include "base/text.h"
#include "platform/StickDevice.h"

namespace vorlent {
namespace {

constexpr double LongestHold_s = 86400;

int holdFrom(const std::string& text) {
  const std::optional<double> seconds = numeric(text);
  if (!seconds || !(*seconds >= 0 && *seconds <= LongestHold_s))
    throw StepError("--hold needs a number of seconds from 0 to 86400, not \"" + text + "\"");
  return static_cast<int>(std::lround(*seconds * 1000));
}

std::string nameFrom(const std::string& text) {
  if (!isStickName(text))
    throw StepError("--name needs 1 to 32 letters, digits, \"-\" and \"_\", not \"" + text + "\"");
  return text;
}

}  // namespace

const std::string_view stickUsage =
    "Usage: vorlent-stick [--name NAME] [--hold SECONDS] [STEP...]\n"
    "Stands in for a game controller: the server lists it as one of its sticks.\n"
    "  --name NAME     the name in the list, and its place there (stick)\n"
    "  --hold SECONDS  end this long after the last step, 0 to 86400; without it lines of further\n"
    "                  steps are read from standard input, and the stick stays until that ends\n"
    "  --help          print this\n"
    "\n"
    "Steps, one after the other:\n"
    "  x=VALUE          move an axis: x y z rx ry rz slider0 slider1, each 0 to 65535\n"
    "  pov0=ANGLE       turn a hat, pov0 to pov3: 0 to 35999 hundredths of a degree, -1 centred\n"
    "  press N          press a button, 1 to 32, and keep it pressed\n"
    "  release N        let it go\n"
    "  tap N            press it for a tenth of a second\n"
    "  sweep AXIS VALUE MS\n"
    "                   move an axis evenly to a value in MS milliseconds\n"
    "  wait MS          do nothing for MS milliseconds\n"
    "  await            wait until the server reads the stick\n"
    "\n"
    "Example: vorlent-stick --name throttle --hold 10 await slider0=32768 tap 3\n";

std::optional<StickOptions> stickOptionsFrom(const std::vector<std::string>& arguments) {
  StickOptions options;
  auto next = arguments.begin();
  const auto valueOf = [&](const std::string& option) -> const std::string& {
    if (next == arguments.end()) throw StepError(option + " needs a value behind it");
    return *next++;
  };
  while (next != arguments.end() && next->starts_with("-")) {
    const std::string& option = *next++;
    if (option == "--help") return std::nullopt;
    if (option == "--name")
      options.name = nameFrom(valueOf(option));
    else if (option == "--hold")
      options.hold_ms = holdFrom(valueOf(option));
    else
      throw StepError("There is no option \"" + option + "\"");
  }
  options.steps = stepsFrom({next, arguments.end()});
  return options;
}

}  // namespace vorlent
