#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "simulator/OffsetMemory.h"

namespace vorlent {

/// Something that the aircraft does not model, but that clients read.
struct ConstantOffset {
  enum class Kind { Byte, Word, Long, Double };

  std::size_t offset;
  Kind kind;
  int count;  ///< of values in a row
  double value;
  std::string_view name;
  std::string_view why;
};

std::span<const ConstantOffset> constantOffsets();
void writeConstantOffsets(OffsetMemory& memory);
/// Where the value of this index, 0 up to but not including `count`, lies.
std::size_t offsetOf(const ConstantOffset& constant, int index);

}  // namespace vorlent
