#include "commands/triples.h"

#include "base/numbers.h"
#include "base/text.h"
#include "commands/commands.h"

namespace vorlent {
namespace {

std::optional<std::string_view> cutField(std::string_view& line) {
  const auto end = line.find(' ');
  if (end == std::string_view::npos) return std::nullopt;
  const std::string_view field = line.substr(0, end);
  line.remove_prefix(end + 1);
  return field;
}

float valueOf(std::string_view text, std::string_view decimalMark) {
  const auto number = numeric(text);
  return toSingle(number ? *number : regionalNumberOf(text, decimalMark));
}

}  // namespace

void carryOut(Commands& commands, const Triple& triple) {
  if (triple.kind == "E")
    commands.SetEncoderValues(triple.code, triple.value);
  else if (triple.kind == "T")
    commands.SetToggleValues(triple.code, triple.value);
  else if (triple.kind == "P")
    commands.SetButtonValues(triple.code, triple.value);
  else
    commands.SetAnalogValues(triple.code, triple.value);
}

bool isKeystroke(const Triple& triple) {
  return triple.kind == "P" && triple.code > LastButtonCommand;
}

std::optional<Triple> cutTriple(std::string_view& line, std::string_view decimalMark) {
  const auto kind = cutField(line);
  if (!kind) return std::nullopt;
  const auto code = cutField(line);
  if (!code) return std::nullopt;
  const auto value = cutField(line);
  if (!value) return std::nullopt;
  return Triple{*kind, int16Of(*code), valueOf(*value, decimalMark)};
}

void carryOutTriples(Commands& commands, std::string_view line, std::string_view decimalMark) {
  while (const auto triple = cutTriple(line, decimalMark)) carryOut(commands, *triple);
}

}  // namespace vorlent
