#pragma once

#include <string>

#include "simlink/Snapshot.h"

namespace vorlent {

struct Server;

/// Turns the simulator's offsets into the variables of the store and rebuilds the data record.
class Poll {
 public:
  explicit Poll(Server& server) : server_(server) {}

  /// One whole poll. A failed round trip is survived once, with every offset reading 0; a second
  /// one in a row ends the process.
  void PollFS();
  /// What a poll does once the offsets are there: decodes them and rebuilds the record.
  void decodeAndRecord(const Snapshot& snapshot);
  /// The poll behind XPUIPC. Does nothing yet: the record stays as it is.
  void PollXPlane() {}

 private:
  void fetch();
  void decodeEngines(const Snapshot& snapshot);
  void buildRadioValues();
  void buildStateValues();
  void buildApValues();

  Server& server_;
  Snapshot snapshot_;
  std::string engineText_;
  bool lastFetchFailed_ = false;
};

}  // namespace vorlent
