#pragma once

#include <functional>
#include <string_view>

namespace vorlent {

/// Writes UTF-8 to a descriptor of the program, and waits as long as its reader makes it. What is
/// left of `text` when it cannot all be written.
std::string_view writeAll(int descriptor, std::string_view text);

/// A thread that is left to itself and is sent no signal: those are the program's.
void startBackgroundThread(std::function<void()> work);

}  // namespace vorlent
