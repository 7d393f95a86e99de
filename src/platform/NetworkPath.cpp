#include "platform/NetworkPath.h"

#include "base/text.h"

namespace vorlent {
namespace {

constexpr std::string_view Separators = "\\/";

/// A name that stays in its folder.
bool isPlainName(std::string_view name) {
  return name != "." && name != ".." && name.find('\0') == std::string_view::npos;
}

std::string_view cutPart(std::string_view& path) {
  const auto end = path.find_first_of(Separators);
  const std::string_view part = path.substr(0, end);
  path.remove_prefix(end == std::string_view::npos ? path.size() : end + 1);
  return part;
}

}  // namespace

std::optional<NetworkPath> networkPathOf(std::string_view path) {
  if (!cutPart(path).empty() || !cutPart(path).empty()) return std::nullopt;
  NetworkPath result{std::string(cutPart(path)), {}};
  while (!path.empty()) {
    const std::string_view name = cutPart(path);
    if (!isPlainName(name)) return std::nullopt;
    if (!name.empty()) result.names.emplace_back(name);
  }
  if (!isHostName(result.host) || result.names.empty()) return std::nullopt;
  return result;
}

}  // namespace vorlent
