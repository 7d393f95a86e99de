#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "base/simulatorUnits.h"
#include "simlink/Snapshot.h"
#include "store/modPublic.h"

namespace vorlent {

/// How a value of X-Plane's poll arrives: already combined, in the width of its variable. `Text` is
/// a run of characters, which no row takes as a number.
enum class TypedKind : std::uint8_t {
  None,
  Byte,
  Unsigned16,
  Signed16,
  Unsigned32,
  Signed32,
  Double,
  Text
};

/// One typed read, or a run of `count` neighbours. An engine's offset is engine 1's, the others
/// have theirs at `distance` each from the one before.
struct TypedRead {
  TypedKind kind = TypedKind::None;
  std::uint16_t offset = 0;
  std::uint16_t count = 1;
  std::int16_t distance = 0;
};

// What the rows are written with. U and S: without and with a sign.
constexpr TypedRead U8(std::uint16_t offset, std::uint16_t count = 1) {
  return {TypedKind::Byte, offset, count};
}
constexpr TypedRead U16(std::uint16_t offset) { return {TypedKind::Unsigned16, offset}; }
constexpr TypedRead S16(std::uint16_t offset) { return {TypedKind::Signed16, offset}; }
constexpr TypedRead U32(std::uint16_t offset) { return {TypedKind::Unsigned32, offset}; }
constexpr TypedRead S32(std::uint16_t offset) { return {TypedKind::Signed32, offset}; }
constexpr TypedRead F64(std::uint16_t offset, std::uint16_t count = 1) {
  return {TypedKind::Double, offset, count};
}
constexpr TypedRead Text(std::uint16_t offset, std::uint16_t size) {
  return {TypedKind::Text, offset, size};
}
/// Of an engine, `distance` from one engine to the next.
constexpr TypedRead engine(TypedRead read, std::int16_t distance = EngineRecord_bytes) {
  read.distance = distance;
  return read;
}

constexpr std::uint16_t elementSize(TypedKind kind) {
  switch (kind) {
    case TypedKind::Byte:
    case TypedKind::Text:
      return 1;
    case TypedKind::Unsigned16:
    case TypedKind::Signed16:
      return 2;
    case TypedKind::Unsigned32:
    case TypedKind::Signed32:
      return 4;
    case TypedKind::Double:
      return 8;
    case TypedKind::None:
      break;
  }
  return 0;
}

constexpr std::uint32_t offsetOf(const TypedRead& read, int engineNumber = 1) {
  return static_cast<std::uint32_t>(read.offset + read.distance * (engineNumber - 1));
}

/// The most reads that a row has.
using TypedReads = std::array<TypedRead, 3>;

/// What a row takes its numbers from.
struct TypedInput {
  const Snapshot& s;
  const TypedReads& reads;
  int engineNumber = 1;  ///< 1..4

  /// Of the row's reads the one at `read`, of a run the neighbour at `element`.
  double number(std::size_t read, std::uint32_t element = 0) const;
  double operator[](std::size_t read) const { return number(read); }
  std::uint8_t byte(std::size_t read, std::uint32_t element = 0) const {
    return s.u8(offsetOf(reads[read], engineNumber) + element);
  }
};

/// One variable: its reads and the statement that works it out of them. A statement that raises a
/// RuntimeError is skipped and the variable keeps its value.
struct XPlaneRow {
  const char* name;
  TypedReads reads;
  void (*decode)(const TypedInput& in, modPublic& v);
};

struct XPlaneEngineRow {
  const char* name;
  TypedReads reads;
  void (*decode)(const TypedInput& in, const modPublic& v, Engine& engine);
};

using XPlaneFamily = std::span<const XPlaneRow> (*)();

std::span<const XPlaneRow> xplaneSystemRows();
std::span<const XPlaneRow> xplaneFlightRows();
std::span<const XPlaneRow> xplaneRadioRows();
std::span<const XPlaneRow> xplaneEngineCountRows();
std::span<const XPlaneEngineRow> xplaneEngineRows();
std::span<const XPlaneRow> xplaneFuelRows();
std::span<const XPlaneRow> xplaneControlRows();
std::span<const XPlaneRow> xplaneReceiverRows();
std::span<const XPlaneRow> xplaneWeatherRows();
std::span<const XPlaneRow> xplaneSimAutopilotRows();

}  // namespace vorlent
