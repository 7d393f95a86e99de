#include "display/Command.h"

#include <charconv>

#include "base/RuntimeError.h"
#include "base/numbers.h"
#include "base/text.h"
#include "platform/UdpSocket.h"

namespace vorlent {
namespace {

[[noreturn]] void refuse(const std::string& why) {
  throw RuntimeError(RuntimeError::InvalidCall, why);
}

std::vector<std::string> words(std::string_view line) {
  std::vector<std::string> found;
  while (!line.empty()) {
    const auto end = line.find_first_of(" \t\r");
    if (end != 0) found.emplace_back(line.substr(0, end));
    if (end == std::string_view::npos) break;
    line.remove_prefix(end + 1);
  }
  return found;
}

std::string kindOf(const std::string& word) {
  if (word == "e" || word == "t" || word == "p")
    refuse("the kinds E, T and P are capital letters: \"" + word + "\" would be an analog value");
  return word;
}

std::int16_t idOf(const std::string& word) {
  std::int16_t id = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), id);
  if (error != std::errc() || end != word.data() + word.size())
    refuse("\"" + word + "\" is no id: a whole number from -32768 to 32767 stands there");
  return id;
}

float valueOf(const std::string& word) {
  try {
    return toSingle(numberOf(word));
  } catch (const RuntimeError&) {
    refuse("\"" + word + "\" is no value: a number stands there, with a point as decimal mark");
  }
}

}  // namespace

std::vector<Command> readCommands(std::string_view line) {
  const auto all = words(line);
  if (all.empty() || all.size() % 3 != 0)
    refuse("a command has three words, kind, id and value, such as \"P 169 1\"");
  std::vector<Command> commands;
  for (std::size_t i = 0; i < all.size(); i += 3)
    commands.push_back({kindOf(all[i]), idOf(all[i + 1]), valueOf(all[i + 2])});
  return commands;
}

std::string commandMessage(std::span<const Command> commands) {
  if (commands.empty()) refuse("a command message holds at least one command");
  std::string message = "p ";
  for (const Command& command : commands)
    message +=
        command.kind + " " + std::to_string(command.id) + " " + singleText(command.value) + " ";
  if (message.size() > UdpSocket::MaxReceived_bytes)
    refuse("these are too many commands for one message");
  return message;
}

}  // namespace vorlent
