#include "stick/Step.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace vorlent {
namespace {

constexpr int LongestDuration_ms = 3600000;

struct AxisName {
  std::string_view name;
  Axis axis;
  std::int32_t lowest;
  std::int32_t highest;
};

constexpr std::int32_t AxisMax = ControllerState::AxisMax;

template <std::int32_t ControllerState::*member>
std::int32_t& plain(ControllerState& state) {
  return state.*member;
}
template <std::size_t index>
std::int32_t& slider(ControllerState& state) {
  return state.slider[index];
}
template <std::size_t index>
std::int32_t& pov(ControllerState& state) {
  return state.POV[index];
}

constexpr std::array AxisNames{
    AxisName{"x", plain<&ControllerState::x>, 0, AxisMax},
    AxisName{"y", plain<&ControllerState::y>, 0, AxisMax},
    AxisName{"z", plain<&ControllerState::z>, 0, AxisMax},
    AxisName{"rx", plain<&ControllerState::rx>, 0, AxisMax},
    AxisName{"ry", plain<&ControllerState::ry>, 0, AxisMax},
    AxisName{"rz", plain<&ControllerState::rz>, 0, AxisMax},
    AxisName{"slider0", slider<0>, 0, AxisMax},
    AxisName{"slider1", slider<1>, 0, AxisMax},
    AxisName{"pov0", pov<0>, ControllerState::Centred, 35999},
    AxisName{"pov1", pov<1>, ControllerState::Centred, 35999},
    AxisName{"pov2", pov<2>, ControllerState::Centred, 35999},
    AxisName{"pov3", pov<3>, ControllerState::Centred, 35999},
};

int number(const std::string& what, std::string_view text, int lowest, int highest) {
  int value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end || value < lowest || value > highest)
    throw StepError(what + " needs a whole number from " + std::to_string(lowest) + " to " +
                    std::to_string(highest) + ", not \"" + std::string(text) + "\"");
  return value;
}

const AxisName& axisNamed(std::string_view name) {
  const auto* const found =
      std::find_if(AxisNames.begin(), AxisNames.end(),
                   [name](const AxisName& axis) { return axis.name == name; });
  if (found == AxisNames.end()) throw StepError("There is no axis \"" + std::string(name) + "\"");
  return *found;
}

/// Takes words off the front of a line.
class Words {
 public:
  explicit Words(const std::vector<std::string>& words) : words_(words) {}

  bool atEnd() const { return next_ == words_.size(); }
  const std::string& take() { return words_[next_++]; }
  const std::string& take(const std::string& step, const char* what) {
    if (atEnd()) throw StepError(step + " needs " + what);
    return take();
  }

 private:
  const std::vector<std::string>& words_;
  std::size_t next_ = 0;
};

std::size_t button(Words& words, const std::string& step) {
  constexpr int Buttons = std::tuple_size_v<decltype(ControllerState::buttons)>;
  const std::string& text = words.take(step, "a button from 1 to 32");
  return static_cast<std::size_t>(number(step, text, 1, Buttons) - 1);
}

int duration_ms(Words& words, const std::string& step) {
  return number(step, words.take(step, "a time in milliseconds"), 0, LongestDuration_ms);
}

Step sweep(Words& words) {
  const AxisName& axis = axisNamed(words.take("sweep", "an axis, a value and a time"));
  const std::string& value = words.take("sweep", "a value and a time");
  return Sweep{axis.axis, number(std::string(axis.name), value, axis.lowest, axis.highest),
               duration_ms(words, "sweep")};
}

Step assignment(const std::string& word, std::size_t equals) {
  const AxisName& axis = axisNamed(std::string_view(word).substr(0, equals));
  return SetAxis{axis.axis,
                 number(std::string(axis.name), std::string_view(word).substr(equals + 1),
                        axis.lowest, axis.highest)};
}

Step nextStep(Words& words) {
  const std::string& word = words.take();
  if (const std::size_t equals = word.find('='); equals != std::string::npos)
    return assignment(word, equals);
  if (word == "press") return SetButton{button(words, word), true};
  if (word == "release") return SetButton{button(words, word), false};
  if (word == "tap") return Tap{button(words, word)};
  if (word == "sweep") return sweep(words);
  if (word == "wait") return Wait{duration_ms(words, word)};
  if (word == "await") return Await{};
  throw StepError("There is no step \"" + word + "\"");
}

}  // namespace

std::vector<Step> stepsFrom(const std::vector<std::string>& words) {
  std::vector<Step> steps;
  for (Words rest(words); !rest.atEnd();) steps.push_back(nextStep(rest));
  return steps;
}

std::vector<std::string> wordsOf(std::string_view line) {
  constexpr std::string_view Blanks = " \t\r";
  std::vector<std::string> words;
  for (std::size_t from = 0;
       (from = line.find_first_not_of(Blanks, from)) != std::string_view::npos;) {
    const std::size_t end = std::min(line.find_first_of(Blanks, from), line.size());
    words.emplace_back(line.substr(from, end - from));
    from = end;
  }
  return words;
}

}  // namespace vorlent
