#include "input/clsJoyst.h"

#include <algorithm>
#include <string>
#include <utility>

#include "base/RuntimeError.h"
#include "base/text.h"
#include "core/Server.h"
#include "core/frmMainClient.h"
#include "input/commands.h"
#include "input/frmCMore.h"
#include "input/frmCStick.h"
#include "input/triples.h"

namespace vorlent {

bool clsJoyst::DInput_Init(std::int16_t& count) {
  const std::size_t found = server_.ports.controllers.devices().size();
  count = static_cast<std::int16_t>(std::min(found, Controllers::Max));
  if (count == 0) server_.mainClient->SetStatusText(1, "No input devices available");
  return count > 0;
}

ControllerResult clsJoyst::read(std::size_t device, ControllerState& state) {
  Controllers& controllers = server_.ports.controllers;
  const ControllerResult acquired = controllers.Acquire(device);
  controllers.Poll(device);
  const ControllerResult result = controllers.GetDeviceState(device, state);
  // Of a device that has gone, some systems only say that it is not acquired.
  const bool gone =
      result == ControllerResult::NotAcquired && acquired == ControllerResult::Unplugged;
  return gone ? acquired : result;
}

std::size_t clsJoyst::sticksInUse() const {
  const int wanted = int16Of(server_.mainClient->txtSticks.Text());
  return std::min(static_cast<std::size_t>(std::max(wanted, 0)), server_.CStick.size());
}

void clsJoyst::StartAllSticks() {
  const int period_ms = int16Of(server_.mainClient->txtPoll.Text());
  for (std::size_t i = 0; i < sticksInUse(); ++i)
    if (server_.CStick[i]) server_.CStick[i]->startPolling(period_ms);
}

void clsJoyst::KillAllSticks() {
  for (std::size_t i = 0; i < sticksInUse(); ++i) {
    server_.CStick[i].reset();
    server_.CMore[i].reset();
  }
}

void clsJoyst::ProcessStickMessage() {
  if (!server_.store.StickMessage.empty())
    ProcessLocalStick(std::exchange(server_.store.StickMessage, {}));
}

void clsJoyst::ProcessLocalStick(std::string_view line) {
  try {
    carryOutTriples(*server_.commands, line, server_.store.sDecimal);
  } catch (const RuntimeError&) {
    // The rest of the line is lost.
  }
}

}  // namespace vorlent
