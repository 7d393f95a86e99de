#pragma once

#include "simlink/Snapshot.h"

namespace vorlent {

class EventLoop;
class clsFSUIPC;
struct modPublic;

/// Turns the simulator's offsets into the variables of the store.
class Poll {
 public:
  Poll(clsFSUIPC& link, modPublic& store, EventLoop& clock)
      : link_(link), store_(store), clock_(clock) {}

  /// One whole poll. A failed round trip is survived once, with every offset reading 0; a second
  /// one in a row ends the process.
  void PollFS();
  /// What a poll does once the offsets are there.
  void decodeAll(const Snapshot& snapshot);

  /// The poll behind XPUIPC. A failed round trip counts as in PollFS(); when the reads cannot even
  /// be queued the poll goes on with what the one before has read.
  void PollXPlane();
  void decodeAllXPlane(const Snapshot& snapshot);
  /// How many engines, from the first on, have a block in the record of X-Plane's poll: 0..4.
  int enginesOfXPlane() const;

 private:
  void fetch();
  void fetchXPlane();
  void endAtSecondFailure(bool failed, int result);
  void weighFuelUsed();
  void decodeApHeading(const Snapshot& snapshot);
  void buildArrays();
  void decodeEngines(const Snapshot& snapshot);
  void buildRadioValues();
  void buildStateValues();
  void buildApValues();

  clsFSUIPC& link_;
  modPublic& store_;
  EventLoop& clock_;
  Snapshot snapshot_;
  bool lastFetchFailed_ = false;
};

}  // namespace vorlent
