#pragma once

#include <string>

namespace vorlent::autoflight {

/// The folder in which a display hands over its plan, with a separator at its end. The host must be
/// a host's name.
inline std::string planFolder(const std::string& host) {
  return "\\\\" + host + "\\Tarnwick\\FMS\\";
}

}  // namespace vorlent::autoflight
