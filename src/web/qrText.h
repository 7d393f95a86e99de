#pragma once

#include <string>

namespace vorlent {

/// A QR code for a terminal, two rows of it in a line; dark on light whatever the terminal's
/// colours are. Empty when the text does not fit into one.
std::string qrText(const std::string& text);

}  // namespace vorlent
