#pragma once

namespace vorlent {

class clsFSUIPC;
struct modPublic;

/// The engine levers. Engines count from 1; the members without an engine serve engines
/// 1..EngineCount, in this order, a round trip each. Write-only; a value outside its type raises
/// Overflow.
class clsEng {
 public:
  clsEng(clsFSUIPC& link, const modPublic& store) : link_(link), store_(store) {}

  /// Percent of the travel; below 0 is reverse.
  void Throttle(int engine, float percent);
  void SetThrottles(float percent);
  void PropAdvance(int engine, float percent);
  void SetPropAdvanceAll(float percent);
  void Mixture(int engine, float percent);
  void SetMixtureAll(float percent);
  /// The switch's position as one byte, cut to a whole number.
  void Magneto(int engine, float position);
  void SetMagnetoAll(float position);

 private:
  void forAll(void (clsEng::*set)(int, float), float value);

  clsFSUIPC& link_;
  const modPublic& store_;
};

}  // namespace vorlent
