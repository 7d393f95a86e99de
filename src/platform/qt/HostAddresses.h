#pragma once

#include <string>
#include <vector>

namespace vorlent {

/// The IPv4 addresses of a host, at least one; none when `host` is empty. An address stands for
/// itself. Waits for the system's own look-up. Raises RuntimeError, with a sentence for the user,
/// when the host is not known.
std::vector<std::string> hostAddresses(const std::string& host);

}  // namespace vorlent
