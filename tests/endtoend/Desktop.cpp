#include "endtoend/Desktop.h"

#include <poll.h>

#include <sstream>
#include <stdexcept>

namespace vorlent {
namespace {

/// Between two questions.
constexpr int Pause_ms = 20;

template <class Condition>
bool comesTo(Condition holds, std::chrono::milliseconds limit = 60s) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!holds()) {
    if (std::chrono::steady_clock::now() > end) return false;
    poll(nullptr, 0, Pause_ms);
  }
  return true;
}

std::string lineOf(Process& program, const std::string& part) {
  if (const auto line = program.waitForLine(part)) return *line;
  throw std::runtime_error("no \"" + part + "\" in: " + program.output());
}

}  // namespace

Desktop::Desktop()
    : bus_(std::make_unique<Process>(
          "/usr/bin/dbus-daemon",
          std::vector<std::string>{"--session", "--nofork", "--print-address"},
          std::vector<std::string>{"HOME=" + home_.path(), "DISPLAY=" + screen_.display()})) {
  environment_ = {"HOME=" + home_.path(),
                  "XDG_CONFIG_HOME=" + home_.path(),
                  "DISPLAY=" + screen_.display(),
                  "DBUS_SESSION_BUS_ADDRESS=" + lineOf(*bus_, "unix:"),
                  "QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1",
                  "QT_QPA_PLATFORM=xcb",
                  "LC_ALL=C"};
  windowManager_ = std::make_unique<Process>(
      "/usr/bin/openbox", std::vector<std::string>{"--sm-disable"}, environment_);
  widgets_ = std::make_unique<Process>(VORLENT_WIDGETS, std::vector<std::string>{}, environment_);
  lineOf(*widgets_, "ready");
}

void Desktop::run(const std::string& program, const std::vector<std::string>& arguments) const {
  Process running(program, arguments, environment_);
  if (running.waitForEnd() != 0) throw std::runtime_error(program + ": " + running.output());
}

std::string Desktop::answerTo(const std::string& question) {
  widgets_->type(question);
  return lineOf(*widgets_, "= ").substr(2);
}

bool Desktop::answers(const std::string& question, const std::string& answer) {
  return comesTo([&] { return answerTo(question) == answer; });
}

bool Desktop::comesToFront(const std::string& window) { return answers("active " + window, "yes"); }

bool Desktop::shows(const std::string& window, const std::string& widget,
                    std::chrono::milliseconds limit) {
  return comesTo([&] { return answerTo("place " + window + "|" + widget) != "none"; }, limit);
}

bool Desktop::checked(const std::string& window, const std::string& widget) {
  return answers("checked " + window + "|" + widget, "yes");
}

bool Desktop::holds(const std::string& window, const std::string& widget, const std::string& text) {
  return answers("text " + window + "|" + widget, text);
}

std::string Desktop::names(const std::string& window) { return answerTo("names " + window); }

void Desktop::keys(const std::string& window, const std::vector<std::string>& names) {
  if (!comesToFront(window)) throw std::runtime_error("not in front: " + window);
  std::vector<std::string> arguments = {"key"};
  arguments.insert(arguments.end(), names.begin(), names.end());
  run("/usr/bin/xdotool", arguments);
}

void Desktop::type(const std::string& window, const std::string& text) {
  if (!comesToFront(window)) throw std::runtime_error("not in front: " + window);
  run("/usr/bin/xdotool", {"type", text});
}

void Desktop::retype(const std::string& window, const std::string& text) {
  keys(window, {"ctrl+a"});
  type(window, text);
}

Desktop::Place Desktop::place(const std::string& window, const std::string& widget) {
  if (!shows(window, widget))
    throw std::runtime_error("no " + widget + " in " + window + ", but " + names(".+"));
  Place place{};
  std::istringstream(answerTo("place " + window + "|" + widget)) >> place.x >> place.y >>
      place.width >> place.height;
  return place;
}

void Desktop::click(const std::string& window, const std::string& widget) {
  const Place at = place(window, widget);
  run("/usr/bin/xdotool", {"mousemove", std::to_string(at.x + at.width / 2),
                           std::to_string(at.y + at.height / 2), "click", "1"});
}

void Desktop::drag(int fromX, int fromY, int toX, int toY) {
  const auto text = [](int pixel) { return std::to_string(pixel); };
  run("/usr/bin/xdotool", {"mousemove", text(fromX), text(fromY), "mousedown", "1", "mousemove",
                           text((fromX + toX) / 2), text((fromY + toY) / 2), "mousemove", text(toX),
                           text(toY), "mouseup", "1"});
}

}  // namespace vorlent
