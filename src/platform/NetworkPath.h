#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorlent {

/// The parts of `\\host\share\path`.
struct NetworkPath {
  std::string host;
  std::vector<std::string> names;  ///< the share, then what lies in it
};

/// Nothing for a path that is not on the network, for a host without a share, and for a path with
/// "." or ".." or a NUL in it: what is left names one thing in one share.
std::optional<NetworkPath> networkPathOf(std::string_view path);

}  // namespace vorlent
