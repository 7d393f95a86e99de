#include "base/systemPath.h"

namespace vorlent {

std::filesystem::path systemPath(std::string_view name) { return name; }
std::string nameOf(const std::filesystem::path& path) { return path.string(); }

}  // namespace vorlent
