#pragma once

#include <string>

#include "store/modPublic.h"

/// The windows of a DME, which the simulator gives as four characters. docs/peculiarities.md: DME
/// text.
namespace vorlent {

/// `decimalMark` is the one of the user's settings.
void decodeDmeDistance(NavRadio& radio, const std::string& text, const std::string& decimalMark);
void decodeDmeSpeed(NavRadio& radio, const std::string& text, const std::string& decimalMark);

}  // namespace vorlent
