#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vorlent {

/// Of `names` those that somebody can have meant by `typed`, the likeliest first, five at most:
/// those that hold it, in any case of letters, then those that a few slips of the hand make of it.
std::vector<std::string> nearNames(std::string_view typed, const std::vector<std::string>& names);

}  // namespace vorlent
