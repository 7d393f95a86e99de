#pragma once

#include <cstdint>

#include "base/IndexedArray.h"

namespace vorlent {

struct modPublic;

/// The running account of the fuel that each engine has burnt, in gallons, since it last started on
/// the ground.
class FuelAccount {
 public:
  explicit FuelAccount(modPublic& store) : store_(store) {}

  /// Every 30 s while a client is up. An engine whose account cannot be worked out keeps it as it
  /// is.
  void takeBeat();

 private:
  void burn(int n);
  void beginAtStartOnGround(int n);

  modPublic& store_;
  IndexedArray<std::int16_t, 1, 4> PreviousCombustion_;
};

}  // namespace vorlent
