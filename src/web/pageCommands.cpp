#include "web/pageCommands.h"

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

/// Codes beyond it are keystrokes.
constexpr std::int16_t LastCode = 1000;

void check(const Command& command) {
  const bool known =
      command.kind == "A" || command.kind == "E" || command.kind == "P" || command.kind == "T";
  if (!known)
    throw RuntimeError(RuntimeError::InvalidCall,
                       "a page sends the kinds A, E, P and T, not \"" + command.kind + "\"");
  if (command.id < 0 || command.id > LastCode)
    throw RuntimeError(RuntimeError::InvalidCall, "a page sends codes from 0 to 1000, and " +
                                                      std::to_string(command.id) +
                                                      " is none: keystrokes are not for pages");
}

}  // namespace

std::vector<Command> readPageCommands(std::string_view message) {
  if (message.size() > LongestPageMessage_bytes)
    throw RuntimeError(RuntimeError::InvalidCall, "the message is longer than 512 bytes");
  auto commands = readCommands(message);
  for (const Command& command : commands) check(command);
  return commands;
}

}  // namespace vorlent
