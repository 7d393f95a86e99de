#pragma once

namespace vorlent {

/// The running account of the fuel burnt by each engine. Does nothing yet: FuelBurnt stays 0, and
/// the speed-unit changeover that shares this slow beat is not there.
class FuelAccount {
 public:
  /// Every 30 s.
  void FuelTimer() {}
};

}  // namespace vorlent
