#pragma once

namespace vorlent {

struct Autoflight;

/// The steps of the cycle that fly take-off, go-around and a plan. All but FlyToGa need one: they
/// raise SubscriptOutOfRange for a plan without the rows that they look at.
namespace autoflight {

/// Take-off and go-around, while the flight director is on.
void FlyToGa(Autoflight& autoflight);
/// Test after test, so that one cycle may pass several phases.
void UpdateFlightPhase(Autoflight& autoflight);
/// Where the aircraft is on its leg, and whether it can still fly it; announces the next waypoint.
/// Raises what updateLeg() raises; what it had found by then stands and is shown.
void updateLegGeometry(Autoflight& autoflight);
/// What the phase makes of altitude, speed and thrust, while VNAV is on.
void FlyVnavProfile(Autoflight& autoflight);

}  // namespace autoflight
}  // namespace vorlent
