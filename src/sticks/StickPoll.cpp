#include "sticks/StickPoll.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <variant>

#include "base/RuntimeError.h"
#include "base/numbers.h"
#include "base/text.h"
#include "commands/commands.h"
#include "platform/EventLoop.h"
#include "platform/StatusLine.h"
#include "sticks/StickDisplay.h"
#include "sticks/Sticks.h"
#include "sticks/buttonState.h"
#include "sticks/clsJoyst.h"
#include "sticks/frmCMore.h"
#include "sticks/frmCStick.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

/// An axis that carries a line of an encoder is closed above this, a quarter of its travel.
constexpr std::int16_t LineThreshold = 8192;
/// So many poll periods without an edge make a pause.
constexpr double PausePeriods = 10;
/// The first of the buttons' places in LastSent.
constexpr std::size_t FirstButton = 4;
constexpr std::size_t MainLines = frmCStick::Lines;
/// An acceleration of forty digits still gives a number that can be sent.
constexpr double MostSteps = std::numeric_limits<float>::max();

/// The number in a box; anything else counts as 0.
double valueOf(const std::string& text) { return numeric(text).value_or(0); }

/// Nothing for what is no whole number of 16 bits: a control with such an assignment does nothing.
/// It was told when the stick's file was read.
std::optional<std::int16_t> codeIn(std::string_view text) {
  try {
    return int16Of(text);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

int lampColour(bool lit) { return lit ? Shape::Red : Shape::White; }

/// The assignment's text goes into the line as it stands.
std::string switchTriple(const std::string& assigned, std::int16_t level) {
  if (!codeIn(assigned.substr(0, assigned.find(' ')))) return {};
  std::string text = "T " + assigned + " ";
  appendInteger(text, level);
  return text += ' ';
}

std::string triple(char kind, std::int16_t code, float value) {
  std::string text{kind, ' '};
  appendInteger(text, code);
  appendSingle(text += ' ', value);
  return text += ' ';
}

/// Appends nothing for a code that takes no lever: the two blanks in a row then end the line there.
struct AppendAnalog {
  std::string& line;
  void operator()(std::monostate) const {}
  void operator()(std::int16_t value) const { appendInteger(line, value); }
  void operator()(float value) const { appendSingle(line, value); }
};

}  // namespace

std::string StickPoll::tick() {
  if (!readDevice()) return {};
  std::transform(state_.buttons.begin(), state_.buttons.end(), Button_.begin(), buttonLevel);
  const ButtonLevels lines = Button_;
  if (stick_.BtnMode() == 1) decodeLines(Button_);
  const AxisValues raw = rawAxes();
  const AxisValues v = conditionedAxes(raw);
  if (stick_.Showing()) stick_.display().readings({raw, v, lines, Button_});
  const std::string axes = stick_.AxisMode() == 0 ? axisTriples(v) : axisEncoderTriples(v);
  return axes + buttonTriples();
}

/// The window, while it is in sight, shows what each row sends.
std::string StickPoll::told(StickRow row, std::string triple) {
  if (stick_.Showing() && !triple.empty()) stick_.display().sent(row, triple);
  return triple;
}

std::string StickPoll::buttonTriples() {
  if (stick_.BtnMode() == 1) return decodedButtonTriples();
  return stick_.BtnMode() == 0 ? lineTriples() : buttonEncoderTriples();
}

bool StickPoll::readDevice() {
  const auto result = sticks_.joyst->read(static_cast<std::size_t>(stick_.MyID()), state_);
  tellUnplugged(result == ControllerResult::Unplugged);
  if (result == ControllerResult::Ok) stateKnown_ = true;
  return stateKnown_;
}

void StickPoll::tellUnplugged(bool unplugged) {
  if (unplugged == unplugged_) return;
  unplugged_ = unplugged;
  sticks_.context.status.SetStatusText(1, "Joystick " + std::to_string(stick_.MyID() + 1) +
                                              (unplugged ? " unplugged" : " plugged in again"));
}

StickPoll::AxisValues StickPoll::rawAxes() const {
  return {halvedAxis(state_.x), halvedAxis(state_.y), halvedAxis(state_.slider[0]),
          halvedAxis(state_.rz)};
}

/// The smoothing's memory holds what is not mirrored.
StickPoll::AxisValues StickPoll::conditionedAxes(const AxisValues& raw) {
  AxisValues v = raw;
  for (std::size_t i = 0; i < v.size(); ++i) {
    const int axis = static_cast<int>(i);
    if (stick_.chkDamp(axis).Value() == 1) v[i] = AxisDamped_[i] = smoothed(AxisDamped_[i], v[i]);
    if (stick_.chkInvert(axis).Value() == 1) v[i] = mirrored(v[i]);
  }
  return v;
}

/// While the window is in sight the curve of the axis that is selected there is that of all four.
std::string StickPoll::axisTriples(const AxisValues& v) {
  std::string line;
  for (int axis = 0; axis < frmCStick::Axes; ++axis) {
    const std::int16_t value = v[static_cast<std::size_t>(axis)];
    const ResponseCurve& curve = stick_.Showing() ? stick_.curve() : stick_.curve(axis);
    line += told({StickRow::Axis, axis}, axisTriple(axis, curveOutput(curve, value)));
    stick_.txtValue(axis).Text(std::to_string(value));
  }
  return line;
}

std::string StickPoll::axisTriple(int axis, std::int16_t out) {
  std::int16_t& lastSent = LastSent_[static_cast<std::size_t>(axis)];
  if (!leavesNullZone(lastSent, out, valueOf(stick_.txtNull(axis).Text()))) return {};
  lastSent = out;
  const auto code = codeIn(stick_.optAxes(axis).Tag());
  if (!code) return {};
  std::string text = "A ";
  appendInteger(text, *code);
  text += ' ';
  std::visit(AppendAnalog{text},
             sticks_.context.commands->AnalogValue(*code, out, static_cast<std::int16_t>(axis)));
  return text += ' ';
}

std::string StickPoll::axisEncoderTriples(const AxisValues& v) {
  const auto level = [&v](std::size_t axis) {
    return static_cast<std::int16_t>(v[axis] > LineThreshold ? 1 : 0);
  };
  std::string line;
  for (const int i : {0, 2}) {
    const auto a = static_cast<std::size_t>(i);
    line +=
        told({StickRow::Axis, i}, encoderTriple({a, level(a), level(a + 1), stick_.optAxes(i),
                                                 stick_.txtAccA(i).Text(), 0, stick_.shpAxis(i)},
                                                axisEncoders_));
  }
  return line;
}

std::string StickPoll::buttonEncoderTriples() {
  std::string line;
  for (const int i : {0, 2}) {
    const auto a = static_cast<std::size_t>(i);
    line += told({StickRow::Line, i},
                 encoderTriple({FirstButton + a, Button_[a], Button_[a + 1], stick_.optSwitches(i),
                                stick_.txtAccBtn(i).Text(), 1, stick_.shpOnOff(i)},
                               buttonEncoders_));
  }
  return line;
}

std::string StickPoll::encoderTriple(const Encoder& encoder, EncoderGroup& group) {
  std::int16_t& lastA = LastBits_[encoder.lastBits];
  std::int16_t& lastB = LastBits_[encoder.lastBits + 1];
  if (encoder.A == lastA && encoder.B == lastB) return {};
  const std::int16_t direction = edgeDirection(encoder.A, lastB);
  const double pause_ms = PausePeriods * sticks_.context.store.EffectivePoll;
  const std::uint32_t dt_ms = group.sinceLastEdge_ms(sticks_.context.eventLoop.tickCount_ms());
  const double step = acceleratedStep(
      dt_ms, pause_ms, std::min(valueOf(encoder.acceleration), MostSteps), encoder.extraStep);
  const auto pushed = [this](std::int16_t pushedDirection) {
    std::int16_t result = 0;
    stick_.push(pushedDirection, result);
    return result != 0;
  };
  std::string text;
  if (group.accept(direction, dt_ms > pause_ms, pushed))
    if (const auto code = codeIn(encoder.assigned.Tag()))
      text = triple('E', *code, toSingle(std::min(step, MostSteps) * direction));
  lastA = encoder.A;
  lastB = encoder.B;
  encoder.lamp.FillColor(lampColour(direction > 0));
  return text;
}

/// Of the device's buttons the first fifteen have an assignment.
std::string StickPoll::decodedButtonTriples() {
  frmCMore& more = *sticks_.CMore.at(static_cast<std::size_t>(stick_.MyID()));
  std::string line;
  for (std::size_t button = 0; button < MainLines + frmCMore::Buttons; ++button) {
    if (Button_[button] != 1) continue;
    const bool isLine = button < MainLines;
    const int place = static_cast<int>(isLine ? button : button - MainLines);
    line += told(
        {isLine ? StickRow::Line : StickRow::Extra, place},
        pushButtonTriple(button, isLine ? stick_.optSwitches(place) : more.optSwitches(place)));
    Shape& lamp = isLine ? stick_.shpOnOff(place) : more.shpOnOff(place);
    lamp.FillColor(lampColour(LastSent_[button + FirstButton] > 0));
  }
  return line;
}

/// A switch sends its level when it changes, a push button an alternating value on every tick on
/// which it is held: so a held button repeats at the pace of the poll.
std::string StickPoll::lineTriples() {
  std::string text;
  for (std::size_t i = 0; i < MainLines; ++i) {
    const int line = static_cast<int>(i);
    const std::string& kind = stick_.OnOff(line).Tag();
    std::int16_t& lastSent = LastSent_[i + FirstButton];
    if (kind == "1" && lastSent != Button_[i]) {
      lastSent = Button_[i];
      text += told({StickRow::Line, line}, switchTriple(stick_.optSwitches(line).Tag(), lastSent));
    }
    if (kind == "0" && Button_[i] == 1)
      text += told({StickRow::Line, line}, pushButtonTriple(i, stick_.optSwitches(line)));
    stick_.shpOnOff(line).FillColor(lampColour(lastSent > 0));
  }
  return text;
}

std::string StickPoll::pushButtonTriple(std::size_t button, const Control& assigned) {
  std::int16_t& lastSent = LastSent_[button + FirstButton];
  lastSent = lastSent == 0 ? 1 : 0;
  const auto code = codeIn(assigned.Tag());
  if (!code) return {};
  return triple('P', *code, ButtonState(sticks_.context.store, *code, lastSent));
}

}  // namespace vorlent
