#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// The grammar in which every input arrives, from a stick or from a client: triples of a kind, a
/// code and a value, each of the three followed by one blank: "A 1 45 P 12 1 E 3 -1 ".
namespace vorlent {

class Commands;

struct Triple {
  std::string_view kind;
  std::int16_t code;
  float value;
};

/// Cuts the first triple off `line`; nothing when what is left is no whole one. The value has a
/// point or `decimalMark`. Raises TypeMismatch or Overflow for a code or value that is no number.
std::optional<Triple> cutTriple(std::string_view& line, std::string_view decimalMark);

/// It presses keys in the program that has the focus.
bool isKeystroke(const Triple& triple);

/// Calls the routine of its kind, "E", "T" or "P", any other SetAnalogValues.
void carryOut(Commands& commands, const Triple& triple);

/// Carries out each triple of the line. Raises as cutTriple() does; what came before is done then.
void carryOutTriples(Commands& commands, std::string_view line, std::string_view decimalMark);

}  // namespace vorlent
