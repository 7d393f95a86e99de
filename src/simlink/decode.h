#pragma once

#include <cstdint>
#include <span>

#include "simlink/Snapshot.h"
#include "store/modPublic.h"

namespace vorlent {

/// One variable: what it is called and the statement that works it out. A statement that raises a
/// RuntimeError is skipped and the variable keeps its value.
struct DecodeRow {
  const char* name;
  void (*decode)(const Snapshot& s, modPublic& v);
};

/// One field of the engine record; `b` is the offset of the engine's block at 0x088C and `e` the
/// distance of its block at 0x2000 from engine 1's.
struct EngineInput {
  const Snapshot& s;
  const modPublic& v;
  int n;
  std::uint32_t b;
  std::uint32_t e;
};
struct EngineRow {
  const char* name;
  void (*decode)(const EngineInput& in, Engine& engine);
};

/// In the order in which a poll works through them: the rows up to the engines, the engine's fields
/// for each engine, the rest.
std::span<const DecodeRow> rowsBeforeEngines();
std::span<const EngineRow> engineRows();
std::span<const DecodeRow> rowsAfterEngines();
/// The simulator's own autopilot.
std::span<const DecodeRow> simAutopilotRows();

void decode(std::span<const DecodeRow> rows, const Snapshot& snapshot, modPublic& variables);
void decodeEngine(int n, const Snapshot& snapshot, modPublic& variables);

/// 10 times the high digit plus the low digit.
int BcdToDec(std::uint8_t bcd);
/// Degrees C, cut to a whole number toward zero. Raises Overflow.
float FahrenheitToCelsius(double fahrenheit);

}  // namespace vorlent
