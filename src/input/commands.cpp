#include "input/commands.h"

#include <algorithm>
#include <string>

#include "core/Server.h"
#include "core/frmMainClient.h"
#include "input/Keystrokes.h"

namespace vorlent {
namespace {

void run(std::span<const CommandRow> rows, CommandContext& context, std::int16_t code,
         float value) {
  const auto row = std::lower_bound(
      rows.begin(), rows.end(), code,
      [](const CommandRow& candidate, std::int16_t sought) { return candidate.code < sought; });
  if (row != rows.end() && row->code == code) row->act(context, value);
}

/// What was done before a fault stays done.
template <class Work>
void telling(Server& server, const char* routine, const Work& work) {
  try {
    work();
  } catch (const RuntimeError& error) {
    server.mainClient->SetStatusText(1, std::string(routine) + " " + error.description());
  }
}

}  // namespace

void Commands::SetAnalogValues(std::int16_t id, float value) {
  telling(context_.server, "SetAnalogValues", [&] { run(analogRows(), context_, id, value); });
}

void Commands::SetButtonValues(std::int16_t id, float value) {
  constexpr std::int16_t lastCommand = 1000;
  telling(context_.server, "SetButtonValues", [&] {
    if (id > lastCommand)
      SendKeys(context_.server.ports.keyboard, KeyString(id));
    else
      run(buttonRows(), context_, id, value);
  });
}

void Commands::SetToggleValues(std::int16_t id, float value) {
  telling(context_.server, "SetToggleValues", [&] { run(toggleRows(), context_, id, value); });
}

void Commands::SetEncoderValues(std::int16_t id, float value) {
  telling(context_.server, "SetEncoderValues", [&] { run(encoderRows(), context_, id, value); });
}

}  // namespace vorlent
