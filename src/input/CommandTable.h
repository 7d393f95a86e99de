#pragma once

#include <cstdint>
#include <span>

namespace vorlent {

struct Server;

/// What a command works on: the server, and what the commands keep for themselves.
struct CommandContext {
  Server& server;
};

/// One code of a routine: what it is called and what it does. A code without a row does nothing.
struct CommandRow {
  std::int16_t code;
  const char* name;
  void (*act)(CommandContext& context, float value);
};

/// The rows in the order of their codes.
std::span<const CommandRow> analogRows();
std::span<const CommandRow> buttonRows();
std::span<const CommandRow> toggleRows();
std::span<const CommandRow> encoderRows();

}  // namespace vorlent
