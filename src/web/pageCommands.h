#pragma once

#include <string_view>
#include <vector>

#include "display/Command.h"

namespace vorlent {

/// The longest message that a page may send.
constexpr std::size_t LongestPageMessage_bytes = 512;

/// The commands that a page asks for, written as at a display: "P 183 1" or "A 82 360 P 172 1".
/// Raises RuntimeError with the reason when they are none, or hold what no page may send: a
/// keystroke code, which presses a key on the server's machine, or a kind other than A, E, P and T.
std::vector<Command> readPageCommands(std::string_view message);

}  // namespace vorlent
