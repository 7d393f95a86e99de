#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vorlent {

/// The path of a zip's entry from the folder that it is unpacked into, its parts separated by
/// slashes. Nothing for one that leads out of that folder, or that is none on one of the systems:
/// it begins at a root or a drive, has a part "." or "..", an empty one, a control character, one
/// of
/// `:*?"<>|`, or more than 8 parts.
std::optional<std::string> entryPath(std::string_view name);

}  // namespace vorlent
