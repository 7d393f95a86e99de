#include "commands/commands.h"

#include <algorithm>
#include <string>

#include "base/numbers.h"
#include "commands/Keystrokes.h"
#include "platform/StatusLine.h"

namespace vorlent {
namespace {

/// Null for a code without a row.
const CommandRow* rowOf(std::span<const CommandRow> rows, std::int16_t code) {
  const auto row = std::lower_bound(
      rows.begin(), rows.end(), code,
      [](const CommandRow& candidate, std::int16_t sought) { return candidate.code < sought; });
  return row != rows.end() && row->code == code ? &*row : nullptr;
}

/// Raises Overflow for a value that is no finite number, so that none is stored.
void run(std::span<const CommandRow> rows, CommandContext& context, std::int16_t code,
         float value) {
  const CommandRow* row = rowOf(rows, code);
  if (row != nullptr && row->act != nullptr) row->act(context, toSingle(value));
}

/// What was done before a fault stays done.
template <class Work>
void telling(StatusLine& status, const char* routine, const Work& work) {
  try {
    work();
  } catch (const RuntimeError& error) {
    status.SetStatusText(1, std::string(routine) + " " + error.description());
  }
}

}  // namespace

bool isCommand(std::string_view kind, std::int16_t code) {
  const auto rows = kind == "E"   ? encoderRows()
                    : kind == "T" ? toggleRows()
                    : kind == "P" ? buttonRows()
                                  : analogRows();
  return code >= FirstKeystroke || rowOf(rows, code) != nullptr;
}

bool takesLever(std::int16_t code) {
  const CommandRow* row = rowOf(analogRows(), code);
  return row != nullptr && row->lever != nullptr;
}

AnalogResult Commands::AnalogValue(std::int16_t code, float value, std::int16_t) {
  AnalogResult result;
  telling(context_.status, "SetAnalogValues", [&] {
    const CommandRow* row = rowOf(analogRows(), code);
    if (row != nullptr && row->lever != nullptr) result = row->lever({context_.store, value});
  });
  return result;
}

void Commands::SetAnalogValues(std::int16_t code, float value) {
  telling(context_.status, "SetAnalogValues", [&] { run(analogRows(), context_, code, value); });
}

void Commands::SetButtonValues(std::int16_t code, float value) {
  telling(context_.status, "SetButtonValues", [&] {
    if (code > LastButtonCommand)
      SendKeys(context_.keyboard, KeyString(code));
    else
      run(buttonRows(), context_, code, value);
  });
}

void Commands::SetToggleValues(std::int16_t code, float value) {
  telling(context_.status, "SetToggleValues", [&] { run(toggleRows(), context_, code, value); });
}

void Commands::SetEncoderValues(std::int16_t code, float value) {
  telling(context_.status, "SetEncoderValues", [&] { run(encoderRows(), context_, code, value); });
}

}  // namespace vorlent
