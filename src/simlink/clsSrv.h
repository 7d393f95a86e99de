#pragma once

#include <cstdint>

namespace vorlent {

class clsFSUIPC;
struct modPublic;

/// Flight controls, fuel and services. Write-only. Positions are the simulator's units, 16383 for
/// the full travel one way, and go out in two bytes; a float is rounded to a whole number first. A
/// value outside its type raises Overflow.
class clsSrv {
 public:
  clsSrv(clsFSUIPC& link, const modPublic& store) : link_(link), store_(store) {}

  /// Percent of the tank, in four round trips, highest byte first: the simulator sees the level in
  /// parts. A byte of a negative level raises Overflow where it is due.
  void CentPct(float percent);
  void LeftMainPct(float percent);
  void LeftAuxPct(float percent);
  void LeftTipPct(float percent);
  void RightMainPct(float percent);
  void RightAuxPct(float percent);
  void RightTipPct(float percent);

  /// Dropped beyond 16383 either way.
  void ElevatorPosition(float value);
  void AileronPosition(float value);
  void RudderPosition(float value);
  /// Elevator trim. Written only while the autopilot is engaged.
  void TrimPosition(float value);
  /// Written only while the autopilot is engaged. Raises Overflow for a NaN or an infinity.
  void AileronTrim(double radians);
  /// Written whether or not the autopilot is engaged: the exit relies on that. Raises Overflow for
  /// a NaN or an infinity.
  void RudderTrim(double radians);
  /// One byte, 0..255.
  void AutoRudder(std::int32_t on);

  void ApplyLeftBrake(std::int16_t value);
  void ApplyRightBrake(std::int16_t value);
  /// Left, then right.
  void ApplyBrakes(std::int16_t value);
  void ApplyParkingBrake(std::int16_t value);
  /// One byte, cut to a whole number.
  void ArmSpoiler(float on);
  void SpoilerPosition(std::int16_t value);
  void FlapPosition(std::int16_t value);
  void GearPosition(std::int16_t value);
  /// One byte, cut to a whole number. TankSelector() and Crossfeed() turn the same selector.
  void TankSelector(float position);
  void Crossfeed(float position);
  void PropSync(std::int16_t on);
  /// The aircraft's own pitch attitude, the low half of the simulator's word.
  void pitch(float value);

 private:
  void writeFuel(std::uint32_t base, float percent);
  bool engaged() const;

  clsFSUIPC& link_;
  const modPublic& store_;
};

}  // namespace vorlent
