#pragma once

#include <string>

namespace vorlent {

/// The text of docs/commands.md: every code of the four routines that does something.
std::string commandListing();

}  // namespace vorlent
