#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "commands/commands.h"
#include "independentText.h"

/// Triples of kind, code and value, read without the code under test, and the commands that note
/// what was called instead of doing it.
namespace independent {

struct Call {
  char kind;  ///< 'A', 'P', 'T' or 'E'
  int code;
  float value;
  bool operator==(const Call&) const = default;
};

class RecordingCommands : public vorlent::Commands {
 public:
  using Commands::Commands;
  void SetAnalogValues(std::int16_t code, float value) override { record('A', code, value); }
  void SetButtonValues(std::int16_t code, float value) override { record('P', code, value); }
  void SetToggleValues(std::int16_t code, float value) override { record('T', code, value); }
  void SetEncoderValues(std::int16_t code, float value) override { record('E', code, value); }
  std::vector<Call> calls;

 private:
  void record(char kind, std::int16_t code, float value) { calls.push_back({kind, code, value}); }
};

/// A number with a point; or, where `decimalMark` is a comma and the text has no point, with commas
/// in place of points.
inline std::optional<double> markedNumber(std::string text, char decimalMark) {
  if (const auto value = number(text)) return value;
  if (decimalMark != ',' || text.find('.') != std::string::npos) return std::nullopt;
  std::replace(text.begin(), text.end(), ',', '.');
  return number(text);
}

/// The calls up to the end of the line or to its first fault.
struct Triples {
  std::vector<Call> calls;
  bool endInAFault = false;
};

inline Triples triplesOf(std::string_view line, char decimalMark) {
  constexpr double firstBeyondASingle = 0x1.ffffffp+127;
  Triples triples;
  const auto fields = split(line, ' ');
  for (std::size_t at = 0; at + 3 < fields.size(); at += 3) {
    const auto code = wholeNumber(fields[at + 1], -32768, 32767);
    const auto value = markedNumber(fields[at + 2], decimalMark);
    if (!code || !value || std::fabs(*value) >= firstBeyondASingle) {
      triples.endInAFault = true;
      return triples;
    }
    const std::string& kind = fields[at];
    const bool known = kind == "E" || kind == "T" || kind == "P";
    triples.calls.push_back({known ? kind[0] : 'A', *code, static_cast<float>(*value)});
  }
  return triples;
}

}  // namespace independent
