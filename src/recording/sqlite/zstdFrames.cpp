#include "recording/sqlite/zstdFrames.h"

#include <zstd.h>

#include "base/RuntimeError.h"
#include "recording/Bytes.h"

namespace vorlent {
namespace {

constexpr int Level = 3;

}  // namespace

std::string compressed(std::string_view bytes) {
  std::string frame(ZSTD_compressBound(bytes.size()), '\0');
  const std::size_t size =
      ZSTD_compress(frame.data(), frame.size(), bytes.data(), bytes.size(), Level);
  if (ZSTD_isError(size) != 0)
    throw RuntimeError(RuntimeError::InternalError, ZSTD_getErrorName(size));
  frame.resize(size);
  return frame;
}

std::string uncompressed(std::string_view frame, std::size_t limit_bytes) {
  const unsigned long long size = ZSTD_getFrameContentSize(frame.data(), frame.size());
  if (size == ZSTD_CONTENTSIZE_UNKNOWN || size == ZSTD_CONTENTSIZE_ERROR || size > limit_bytes)
    recorded::refuseBytes();
  std::string bytes(static_cast<std::size_t>(size), '\0');
  const std::size_t found = ZSTD_decompress(bytes.data(), bytes.size(), frame.data(), frame.size());
  if (ZSTD_isError(found) != 0 || found != bytes.size()) recorded::refuseBytes();
  return bytes;
}

}  // namespace vorlent
