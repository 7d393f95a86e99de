#pragma once

#include <optional>
#include <string>
#include <vector>

namespace vorlent {

/// Runs a program, looked for in PATH, without a shell and with no input, and waits for it. Gives
/// what it wrote to standard output; past the deadline it is killed and gives what it had written
/// until then. Nothing when it could not be started.
std::optional<std::string> runChild(std::vector<std::string> arguments, int deadline_ms);

}  // namespace vorlent
