#include "stick/StickOptions.h"

#include <cmath>

#include "commandline/CommandLine.h"
#include "platform/StickDevice.h"

namespace vorlent {
namespace {

constexpr double LongestHold_s = 86400;

constexpr const char* StepsText =
    "Steps, one after the other:\n"
    "  x=VALUE          Move an axis: x y z rx ry rz slider0 slider1, each 0 to 65535\n"
    "  pov0=ANGLE       Turn a hat, pov0 to pov3: 0 to 35999 hundredths of a degree, -1 centred\n"
    "  press N          Press a button, 1 to 32, and keep it pressed\n"
    "  release N        Let it go\n"
    "  tap N            Press it for a tenth of a second\n"
    "  sweep AXIS VALUE MS\n"
    "                   Move an axis evenly to a value in MS milliseconds\n"
    "  wait MS          Do nothing for MS milliseconds\n"
    "  await            Wait until the server reads the stick\n"
    "\n"
    "Example: vorlent-stick --name throttle --hold 10 await slider0=32768 tap 3";

std::string whyNoStick(const std::string& text) {
  if (isStickName(text)) return "";
  return "it takes 1 to 32 letters, digits, \"-\" and \"_\", not \"" + text + "\"";
}

}  // namespace

StickOptions stickOptionsFrom(const std::vector<std::string>& arguments) {
  StickOptions options;
  std::optional<double> hold_s;
  std::vector<std::string> steps;
  CommandLine line("vorlent-stick",
                   "Stands in for a game controller: the server lists it as one of its sticks.");
  line.option("STEP", "", steps, "What it does first; see below").takeAll();
  line.option("--name", "NAME", options.name, "The name in the list, and its place there (stick)")
      .check(whyNoStick);
  line.option("--hold", "SECONDS", hold_s,
              "End this long after the last step, 0 to 86400; without it lines of\n"
              "further steps are read from standard input, and the stick stays\n"
              "until that ends")
      .check(numberFrom(0, LongestHold_s));
  line.footer(StepsText);
  line.read(arguments);
  if (hold_s) options.hold_ms = static_cast<int>(std::lround(*hold_s * 1000));
  try {
    options.steps = stepsFrom(steps);
  } catch (const StepError& error) {
    line.refuse(error.what());
  }
  return options;
}

}  // namespace vorlent
