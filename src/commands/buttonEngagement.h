#pragma once

namespace vorlent {

class clsXAutoP;

/// A press on a command button, side 1 (A, left) or 2 (B, right). A side that is on goes off with
/// the other one, and the autopilot and a go-around with them. A side that is off goes on while the
/// autopilot's master is on and the other side is off; control-wheel steering goes off then.
void ApCommand(clsXAutoP& ap, int side);

/// The same for the buttons of control-wheel steering, which turn the command sides off.
void ApCws(clsXAutoP& ap, int side);

}  // namespace vorlent
