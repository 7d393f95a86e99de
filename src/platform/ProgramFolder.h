#pragma once

#include <string>

namespace vorlent {

/// The folder in which the executable of this process stands, without a separator at its end.
/// Raises PathNotFound when the system does not tell.
std::string programFolder();

}  // namespace vorlent
