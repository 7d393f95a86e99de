#include "input/commands.h"

#include <algorithm>
#include <string>

#include "base/numbers.h"
#include "core/Server.h"
#include "core/frmMainClient.h"
#include "input/Keystrokes.h"

namespace vorlent {
namespace {

/// Null for a code without a row.
template <class Row>
const Row* rowOf(std::span<const Row> rows, std::int16_t code) {
  const auto row = std::lower_bound(
      rows.begin(), rows.end(), code,
      [](const Row& candidate, std::int16_t sought) { return candidate.code < sought; });
  return row != rows.end() && row->code == code ? &*row : nullptr;
}

/// Raises Overflow for a value that is no finite number, so that none is stored.
void run(std::span<const CommandRow> rows, CommandContext& context, std::int16_t code,
         float value) {
  if (const CommandRow* row = rowOf(rows, code)) row->act(context, toSingle(value));
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

AnalogResult Commands::AnalogValue(std::int16_t code, float value, std::int16_t) {
  AnalogResult result;
  telling(context_.server, "SetAnalogValues", [&] {
    if (const LeverRow* row = rowOf(leverRows(), code))
      result = row->convert({context_.server, value});
  });
  return result;
}

void Commands::SetAnalogValues(std::int16_t code, float value) {
  telling(context_.server, "SetAnalogValues", [&] { run(analogRows(), context_, code, value); });
}

void Commands::SetButtonValues(std::int16_t code, float value) {
  constexpr std::int16_t LastCommand = 1000;
  telling(context_.server, "SetButtonValues", [&] {
    if (code > LastCommand)
      SendKeys(context_.server.ports.keyboard, KeyString(code));
    else
      run(buttonRows(), context_, code, value);
  });
}

void Commands::SetToggleValues(std::int16_t code, float value) {
  telling(context_.server, "SetToggleValues", [&] { run(toggleRows(), context_, code, value); });
}

void Commands::SetEncoderValues(std::int16_t code, float value) {
  telling(context_.server, "SetEncoderValues", [&] { run(encoderRows(), context_, code, value); });
}

}  // namespace vorlent
