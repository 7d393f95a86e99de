#pragma once

#include "simlink/Snapshot.h"

namespace vorlent {

class clsFSUIPC;
struct modPublic;

/// Turns the simulator's offsets into the variables of the store.
class Poll {
 public:
  Poll(clsFSUIPC& link, modPublic& store) : link_(link), store_(store) {}

  /// One whole poll. A failed round trip is survived once, with every offset reading 0; a second
  /// one in a row ends the process.
  void PollFS();
  /// What a poll does once the offsets are there.
  void decodeAll(const Snapshot& snapshot);
  /// The poll behind XPUIPC. Does nothing yet: the variables stay as they are.
  void PollXPlane() {}

 private:
  void fetch();
  void decodeEngines(const Snapshot& snapshot);
  void buildRadioValues();
  void buildStateValues();
  void buildApValues();

  clsFSUIPC& link_;
  modPublic& store_;
  Snapshot snapshot_;
  bool lastFetchFailed_ = false;
};

}  // namespace vorlent
