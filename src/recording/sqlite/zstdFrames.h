#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vorlent {

/// The bytes as one zstd frame.
std::string compressed(std::string_view bytes);
/// Raises RuntimeError InputPastEnd for what is no frame, is damaged, or would be larger than the
/// limit.
std::string uncompressed(std::string_view frame, std::size_t limit_bytes);

}  // namespace vorlent
