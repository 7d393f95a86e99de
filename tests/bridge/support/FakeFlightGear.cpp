#include "bridge/support/FakeFlightGear.h"

#include <bit>
#include <sstream>
#include <stdexcept>

namespace vorlent {
namespace {

/// What stands between the next pair of these tags; `at` moves behind it.
std::string nextBetween(const std::string& text, const std::string& tag, std::size_t& at) {
  const std::string open = "<" + tag + ">";
  const std::size_t begin = text.find(open, at);
  if (begin == std::string::npos) return {};
  const std::size_t end = text.find("</" + tag + ">", begin);
  at = end;
  return text.substr(begin + open.size(), end - begin - open.size());
}

std::vector<std::string> nodesIn(const std::string& file) {
  std::vector<std::string> nodes;
  std::size_t at = 0;
  for (std::string node; !(node = nextBetween(file, "node", at)).empty();) nodes.push_back(node);
  return nodes;
}

std::string only(const std::string& file, const std::string& tag) {
  std::size_t at = 0;
  return nextBetween(file, tag, at);
}

void expectText(const std::string& text, const std::string& expected) {
  if (text != expected) throw std::runtime_error("\"" + text + "\" is not \"" + expected + "\"");
}

void appendHighestFirst(std::string& to, std::uint64_t bits, int bytes) {
  for (int i = bytes - 1; i >= 0; --i) to += static_cast<char>(bits >> 8 * i & 0xFF);
}

}  // namespace

FakeFlightGear::FakeFlightGear(const std::string& recordFile, const std::string& controlFile)
    : recorded_(nodesIn(recordFile)), controlled_(nodesIn(controlFile)) {
  expectText(only(recordFile, "binary_mode"), "true");
  expectText(only(recordFile, "byte_order"), "network");
  expectText(only(controlFile, "line_separator"), "newline");
  expectText(only(controlFile, "var_separator"), "tab");
  const std::string footer = only(recordFile, "binary_footer");
  expectText(footer.substr(0, 8), "magic,0x");
  mark_ = static_cast<std::uint32_t>(std::stoul(footer.substr(8), nullptr, 16));
}

void FakeFlightGear::start(const std::string& aircraft) {
  aircraft_ = aircraft;
  tree = {
      {"/sim/time/elapsed-sec", 10},
      {"/sim/time/utc/hour", 12},
      {"/position/latitude-deg", 45},
      {"/position/longitude-deg", -90},
      {"/position/altitude-ft", 5000},
      {"/position/ground-elev-m", 100},
      {"/orientation/pitch-deg", 2.5},
      {"/orientation/roll-deg", -15},
      {"/orientation/heading-deg", 270},
      {"/environment/magnetic-variation-deg", -3},
      {"/velocities/groundspeed-kt", 260},
      {"/velocities/airspeed-kt", 250},
      {"/velocities/mach", 0.41},
      {"/velocities/vertical-speed-fps", -10},
      {"/instrumentation/altimeter/setting-inhg", 29.92},
      {"/environment/temperature-degc", 5},
      {"/engines/engine[0]/running", 1},
      {"/engines/engine[1]/running", 1},
      {"/engines/engine[0]/n1", 62.5},
      {"/engines/engine[0]/egt-degf", 900},
      {"/controls/engines/engine[0]/throttle", 0.5},
      {"/controls/engines/engine[1]/throttle", 0.5},
      {"/yasim/gross-weight-lbs", 120000},
      {"/controls/gear/gear-down", 1},
      {"/instrumentation/nav[0]/frequencies/selected-mhz", 110.3},
      {"/autopilot/settings/target-altitude-ft", 5000},
  };
}

std::string FakeFlightGear::record() const {
  std::string bytes;
  for (const std::string& node : recorded_) {
    const auto found = tree.find(node);
    const double value = found == tree.end() ? 0 : found->second;
    appendHighestFirst(bytes, std::bit_cast<std::uint64_t>(value), 8);
  }
  appendHighestFirst(bytes, mark_, 4);
  return bytes;
}

void FakeFlightGear::takeDatagram(const std::string& text) {
  ++datagrams;
  std::istringstream fields(text);
  std::string field;
  for (const std::string& node : controlled_) {
    if (!(fields >> field)) throw std::runtime_error("too few values: " + text);
    tree[node] = std::stod(field);
  }
  if (fields >> field) throw std::runtime_error("too many values: " + text);
}

std::string FakeFlightGear::answerTo(const std::string& line) {
  lines.push_back(line);
  std::istringstream words(line);
  std::string verb;
  std::string property;
  double value = 0;
  words >> verb >> property;
  if (verb == "set" && words >> value) tree[property] = value;
  if (verb != "get") return {};
  if (property == "/sim/aero")
    return "c172\r\n";  // what stands there where an aircraft says nothing
  return (property == "/sim/aircraft" ? aircraft_ : std::to_string(tree[property])) + "\r\n";
}

}  // namespace vorlent
