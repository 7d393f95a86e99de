#pragma once

#include <span>

#include "simlink/Snapshot.h"
#include "simlink/xplaneRows.h"

namespace vorlent {

/// Every read of X-Plane's poll but the autopilot block, whose offset is a setting.
std::span<const SnapshotRead> xplaneReads();

/// All variables but those of the computer's clock and of the autopilot block, the four engines
/// among them.
void decodeXPlane(const Snapshot& snapshot, modPublic& variables);
/// `number` is 1..4.
void DecodeEngine(int number, const Snapshot& snapshot, modPublic& variables);

}  // namespace vorlent
