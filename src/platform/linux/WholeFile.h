#pragma once

#include <filesystem>
#include <string>

/// Files that come whole or not at all. They raise filesystem_error, and what they read
/// RuntimeError.
namespace vorlent {

/// Makes the folders on the way. Takes the place of what is there.
void writeWhole(const std::filesystem::path& to, const std::string& content);
void copyWhole(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace vorlent
