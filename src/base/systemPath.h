#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// Paths of the file system by our own names, which are UTF-8 everywhere: the standard library
/// takes a plain string on Windows for one of another code page. One source file for each operating
/// system.
namespace vorlent {

std::filesystem::path systemPath(std::string_view name);
/// The name of a path. Gives back what systemPath() was given, but for separators.
std::string nameOf(const std::filesystem::path& path);

}  // namespace vorlent
