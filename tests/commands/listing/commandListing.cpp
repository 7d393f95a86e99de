#include "commands/listing/commandListing.h"

#include <span>
#include <string_view>

#include "commands/CommandTable.h"

namespace vorlent {
namespace {

constexpr std::string_view Introduction =
    R"md(# Commands

What [displays](display-protocol.md#commands) and [boards](controllers.md) can command: all codes of the four kinds. Made by `build/release/bin/vorlent-commands > docs/commands.md` from the tables in `src/commands`; a test fails where they differ.

A command is a kind, a code and a value. A code that is not in these lists does nothing, and so does "Not assigned". "MCP" stands for the server's own [autoflight](cockpit/autoflight.md), "A/P" and "A/T" without it for the autopilot of the simulator. "(second)" is one more code for the same.
)md";

constexpr std::string_view AnalogValues =
    R"md(
## Analog values

Kind `A` (any text but `E`, `T` and `P`); the value is in the unit of the command. "lever": an axis of a stick can be assigned to it, and `anasort.txt` offers it. The others have no rule by which a lever's travel would become a value, so they are for displays and other programs that send commands: an axis with such a code sends nothing, and what follows on its stick in the same tick is lost. The targets of the autopilot, 78 to 85, stand in `anasort.txt` switched off, with `#` in front of their names; what a builder turns there is an encoder, a push button or a display.

| Code | Name | |
|---|---|---|
)md";

constexpr std::string_view Buttons =
    R"md(
## Push buttons

Kind `P`, offered by `butsort.txt`. A code above 1000 [presses a key](controllers.md#the-file-of-a-stick).

| Code | Name |
|---|---|
)md";

constexpr std::string_view Toggles =
    R"md(
## Toggle switches

Kind `T`, offered by `togsort.txt`; the value is 1 closed, 0 open.

| Code | Name |
|---|---|
)md";

constexpr std::string_view Encoders =
    R"md(
## Encoders

Kind `E`, offered by `encoder.txt`; the value is the number of steps, negative down. A digit of the transponder goes up by one, whatever the value.

| Code | Name |
|---|---|
)md";

std::string rowStart(const CommandRow& row) {
  return "| " + std::to_string(row.code) + " | " + row.name + " |";
}

std::string namesOf(std::span<const CommandRow> rows) {
  std::string text;
  for (const CommandRow& row : rows)
    if (row.act != nullptr) text += rowStart(row) + "\n";
  return text;
}

std::string namesAndLeversOf(std::span<const CommandRow> rows) {
  std::string text;
  for (const CommandRow& row : rows)
    if (row.act != nullptr) text += rowStart(row) + (row.lever != nullptr ? " lever |\n" : " |\n");
  return text;
}

}  // namespace

std::string commandListing() {
  std::string text(Introduction);
  text.append(AnalogValues).append(namesAndLeversOf(analogRows()));
  text.append(Buttons).append(namesOf(buttonRows()));
  text.append(Toggles).append(namesOf(toggleRows()));
  text.append(Encoders).append(namesOf(encoderRows()));
  return text;
}

}  // namespace vorlent
