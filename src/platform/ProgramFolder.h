#pragma once

#include <string>

namespace vorlent {

/// The folder of this installation's settings, cockpits and log, without a separator at its end.
/// It is the one in which the executable of this process stands. A program that a Linux package
/// installed works in the user's own folder instead, which this fills with the shipped files that
/// are not in it. Raises PathNotFound or PathAccess, with a sentence that says what is wrong.
std::string programFolder();

/// The folder in which the executable of this process stands, with the other programs beside it.
/// Raises PathNotFound.
std::string executableFolder();

}  // namespace vorlent
