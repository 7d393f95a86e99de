#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vorlent {

/// One triple of a command message.
struct Command {
  std::string kind;  ///< "E" encoder, "T" toggle, "P" button; any other text is an analog value
  std::int16_t id = 0;
  float value = 0;
};

/// The triples of a typed line, such as "P 169 1" or "E 13 -1 T 27 0". Raises RuntimeError with a
/// description for the user when the line is not made of whole triples, when an id is no 16-bit
/// integer, a value no number, or a kind is a small letter that would be taken for an analog value.
std::vector<Command> readCommands(std::string_view line);

/// The message that carries the commands. Values have a point as decimal mark. Raises RuntimeError
/// when it is empty or longer than the 2048 bytes that the server reads.
std::string commandMessage(std::span<const Command> commands);

}  // namespace vorlent
