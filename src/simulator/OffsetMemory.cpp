#include "simulator/OffsetMemory.h"

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

void check(std::size_t offset, std::size_t size) {
  if (!OffsetMemory::contains(offset, size)) throw RuntimeError(RuntimeError::SubscriptOutOfRange);
}

}  // namespace

void OffsetMemory::copyOut(std::size_t offset, std::span<std::byte> to) const {
  check(offset, to.size());
  if (!to.empty()) std::memcpy(to.data(), bytes_.data() + offset, to.size());
}

void OffsetMemory::copyIn(std::size_t offset, std::span<const std::byte> from) {
  check(offset, from.size());
  if (!from.empty()) std::memcpy(bytes_.data() + offset, from.data(), from.size());
}

}  // namespace vorlent
