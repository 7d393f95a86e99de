#pragma once

#include <cstdint>
#include <span>

#include "base/simulatorUnits.h"
#include "simlink/Snapshot.h"
#include "store/modPublic.h"

namespace vorlent {

/// One variable: what it is called and the statement that works it out. In the rows `s` is the
/// snapshot of this poll and `v` the store. A statement that raises a RuntimeError is skipped and
/// the variable keeps its value.
struct DecodeRow {
  const char* name;
  void (*decode)(const Snapshot& s, modPublic& v);
};

/// What an engine's rows read. An offset is always engine 1's; the other engines have theirs at the
/// same distance each from the one before.
struct EngineInput {
  const Snapshot& snapshot;
  const modPublic& variables;
  int number;  ///< 1..4

  std::uint32_t offset(std::uint32_t firstEngine, int distance) const {
    return firstEngine + static_cast<std::uint32_t>(distance * (number - 1));
  }
  /// A byte and a word of the engine's record.
  std::uint8_t u8(std::uint32_t firstEngine) const {
    return snapshot.u8(offset(firstEngine, EngineRecord_bytes));
  }
  std::uint16_t u16(std::uint32_t firstEngine) const {
    return snapshot.u16(offset(firstEngine, EngineRecord_bytes));
  }
  double f64(std::uint32_t firstEngine, int distance) const {
    return snapshot.f64(offset(firstEngine, distance));
  }
};

/// One field of the engine record.
struct EngineRow {
  const char* name;
  void (*decode)(const EngineInput& in, Engine& engine);
};

/// The rows of one family, in the order in which a poll works through them.
using Family = std::span<const DecodeRow> (*)();

std::span<const DecodeRow> systemRows();
std::span<const DecodeRow> flightRows();
std::span<const DecodeRow> radioRows();
std::span<const DecodeRow> engineCountRows();
std::span<const EngineRow> engineRows();
std::span<const DecodeRow> fuelRows();
std::span<const DecodeRow> controlRows();
std::span<const DecodeRow> receiverRows();
std::span<const DecodeRow> weatherRows();
std::span<const DecodeRow> simAutopilotRows();

/// From version 2 on the simulator has standby frequencies, fractions and doubles.
inline bool isModern(const modPublic& v) { return v.FsVersionCode >= modPublic::MinFsVersion; }

}  // namespace vorlent
