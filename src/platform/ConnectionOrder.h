#pragma once

#include <string_view>

namespace vorlent {

/// Whether connection `a` comes before `b`: by their characters, but with runs of digits compared
/// as numbers, so that port 2 comes before port 10. A strict weak ordering.
bool comesBefore(std::string_view a, std::string_view b);

}  // namespace vorlent
