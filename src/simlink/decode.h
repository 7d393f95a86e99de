#pragma once

#include <cstdint>
#include <span>

#include "simlink/Snapshot.h"
#include "simlink/decodeRows.h"
#include "store/modPublic.h"

namespace vorlent {

/// What a poll works through before the engines, and what after them. The engines come one by one,
/// because the engine count ends them.
std::span<const Family> familiesBeforeEngines();
std::span<const Family> familiesAfterEngines();

void decode(std::span<const Family> families, const Snapshot& snapshot, modPublic& variables);
/// `number` is 1..4.
void decodeEngine(int number, const Snapshot& snapshot, modPublic& variables);

}  // namespace vorlent
