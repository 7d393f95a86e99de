#pragma once

namespace vorlent {

class clsFSUIPC;

/// The simulator's switches, lights and EFIS. Write-only; each is one byte, cut to a whole number.
/// Raises Overflow outside 0..255.
class clsFsOpt {
 public:
  explicit clsFsOpt(clsFSUIPC& link) : link_(link) {}

  /// 1 pauses, 0 lets go.
  void FSPaused(float on);
  void NavLights(float on);
  void FSStrobeLights(float on);
  void FSLandingLights(float on);
  void FSPitotHeat(float on);
  void FSGpsSwitch(float on);
  void FSSlew(float on);
  void EfisActive(float on);
  void EfisVorElev(float value);
  void EfisDensity(float value);
  void EfisRange(float value);
  void EfisMode(float value);
  void EfisVorOrIls(float value);
  void EfisNav1Or2(float value);
  void EfisDisplay(float value);
  void FDirActive(float on);
  void Battery(float on);
  void Avionics(float on);
  void Autofeather(float on);

  /// The altimeter's setting, in sixteenths of a hectopascal, in two round trips, low byte first.
  /// From 4096 hPa on and below 0 the byte that does not fit raises Overflow where it is due.
  void AltSet(float hectopascals);

 private:
  clsFSUIPC& link_;
};

}  // namespace vorlent
