#pragma once

#include <string>

namespace vorlent {

/// Empty when the process can open as many files more as a program with an event loop needs to
/// start; without them the event loop would end it without a word. Else what to tell the user.
std::string whyTooFewDescriptors();

}  // namespace vorlent
