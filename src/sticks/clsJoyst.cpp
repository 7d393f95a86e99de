#include "sticks/clsJoyst.h"

#include <algorithm>
#include <string>
#include <utility>

#include "base/RuntimeError.h"
#include "base/controls.h"
#include "base/text.h"
#include "commands/commands.h"
#include "commands/triples.h"
#include "platform/StatusLine.h"
#include "sticks/Sticks.h"
#include "sticks/frmCMore.h"
#include "sticks/frmCStick.h"
#include "sticks/frmXY.h"
#include "store/modPublic.h"

namespace vorlent {

bool clsJoyst::DInput_Init(std::int16_t& count) {
  const std::size_t found = sticks_.context.controllers.devices().size();
  count = static_cast<std::int16_t>(std::min(found, Controllers::Max));
  if (count == 0) sticks_.context.status.SetStatusText(1, "No input devices available");
  return count > 0;
}

ControllerResult clsJoyst::read(std::size_t device, ControllerState& state) {
  Controllers& controllers = sticks_.context.controllers;
  const ControllerResult acquired = controllers.Acquire(device);
  controllers.Poll(device);
  const ControllerResult result = controllers.GetDeviceState(device, state);
  // Of a device that has gone, some systems only say that it is not acquired.
  const bool gone =
      result == ControllerResult::NotAcquired && acquired == ControllerResult::Unplugged;
  return gone ? acquired : result;
}

std::size_t clsJoyst::sticksInUse() const {
  const int wanted = int16Of(sticks_.context.txtSticks.Text());
  return std::min(static_cast<std::size_t>(std::max(wanted, 0)), sticks_.CStick.size());
}

void clsJoyst::StartAllSticks() {
  const int period_ms = int16Of(sticks_.context.txtPoll.Text());
  for (std::size_t i = 0; i < sticksInUse(); ++i)
    if (sticks_.CStick[i]) sticks_.CStick[i]->startPolling(period_ms);
}

void clsJoyst::KillAllSticks() {
  for (std::size_t i = 0; i < sticksInUse(); ++i) {
    closeWindows(i);
    sticks_.CStick[i].reset();
    sticks_.CMore[i].reset();
  }
}

/// A window does not outlive what it shows.
void clsJoyst::closeWindows(std::size_t stick) {
  const bool curve =
      sticks_.XY->Visible() && static_cast<std::size_t>(sticks_.XY->stick()) == stick;
  if (curve) sticks_.XY->close();
  if (sticks_.CMore[stick]) sticks_.CMore[stick]->close();
  if (sticks_.CStick[stick]) sticks_.CStick[stick]->close();
}

void clsJoyst::ProcessStickMessage(const std::function<void()>& afterEach) {
  if (!sticks_.context.store.StickMessage.empty())
    ProcessLocalStick(std::exchange(sticks_.context.store.StickMessage, {}), afterEach);
}

/// An encoder's routine knows no keys: the poll presses them, one with each step that is sent.
void clsJoyst::pressEncoderKey(const Triple& triple) {
  if (triple.kind == "E" && triple.code > LastButtonCommand)
    sticks_.context.commands->SetButtonValues(triple.code, triple.value);
}

void clsJoyst::ProcessLocalStick(std::string_view line, const std::function<void()>& afterEach) {
  try {
    while (const auto triple = cutTriple(line, sticks_.context.store.sDecimal)) {
      carryOut(*sticks_.context.commands, *triple);
      pressEncoderKey(*triple);
      if (afterEach) afterEach();
    }
  } catch (const RuntimeError&) {
    // The rest of the line is lost.
  }
}

}  // namespace vorlent
