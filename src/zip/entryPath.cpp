#include "zip/entryPath.h"

#include "base/folders.h"
#include "base/text.h"

namespace vorlent {
namespace {

constexpr int MostParts = 8;

}  // namespace

std::optional<std::string> entryPath(std::string_view name) {
  std::string path = replaced(name, "\\", "/");
  if (path.size() > 1 && path.back() == '/') path.pop_back();  // a folder's
  std::string_view rest = path;
  for (int parts = 1; parts <= MostParts; ++parts) {
    const auto end = rest.find('/');
    if (!isFolderName(rest.substr(0, end))) return std::nullopt;
    if (end == std::string_view::npos) return path;
    rest.remove_prefix(end + 1);
  }
  return std::nullopt;
}

}  // namespace vorlent
