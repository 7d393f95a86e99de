#include "stick/StickProgram.h"

#include <algorithm>
#include <cstdint>

namespace vorlent {

void StickProgram::run(const StickOptions& options) {
  if (!carryOut(options.steps)) return;
  if (options.hold_ms)
    device_.pause(*options.hold_ms);
  else
    readLines();
}

void StickProgram::readLines() {
  while (const auto line = device_.nextLine()) {
    try {
      if (!carryOut(stepsFrom(wordsOf(*line)))) return;
    } catch (const StepError& error) {
      complain_(error.what());
    }
  }
}

bool StickProgram::carryOut(const std::vector<Step>& steps) {
  return std::all_of(steps.begin(), steps.end(), [this](const Step& step) {
    return std::visit([this](const auto& kind) { return carryOut(kind); }, step);
  });
}

bool StickProgram::carryOut(const SetAxis& step) {
  step.axis(state_) = step.value;
  device_.show(state_);
  return true;
}

bool StickProgram::carryOut(const SetButton& step) {
  state_.buttons[step.button] = step.pressed ? ControllerState::Pressed : 0;
  device_.show(state_);
  return true;
}

bool StickProgram::carryOut(const Tap& step) {
  carryOut(SetButton{step.button, true});
  const bool goesOn = device_.pause(TapDuration_ms);
  carryOut(SetButton{step.button, false});
  return goesOn;
}

bool StickProgram::carryOut(const Sweep& step) {
  const std::int64_t from = step.axis(state_), way = step.value - from;
  for (int passed_ms = 0; passed_ms < step.duration_ms;) {
    const int interval_ms = std::min(SweepInterval_ms, step.duration_ms - passed_ms);
    if (!device_.pause(interval_ms)) return false;
    passed_ms += interval_ms;
    carryOut(
        SetAxis{step.axis, static_cast<std::int32_t>(from + way * passed_ms / step.duration_ms)});
  }
  return carryOut(SetAxis{step.axis, step.value});
}

bool StickProgram::carryOut(const Wait& step) { return device_.pause(step.duration_ms); }

bool StickProgram::carryOut(const Await&) { return device_.awaitReader(); }

}  // namespace vorlent
