#pragma once

#include <cstdint>
#include <string>

#include "base/IndexedArray.h"

namespace vorlent {

struct Server;

/// One detent of the flap lever. Record 0 holds the number of detents in `Degrees`.
struct FlapDetent {
  std::int16_t Limit = 0;     ///< axis position at which the detent begins, 0..16383
  std::int16_t Degrees = 0;   ///< where known
  std::int16_t Position = 0;  ///< axis and simulator position, 0..16383
};

class Flaps {
 public:
  explicit Flaps(Server& server) : server_(server) {}

  /// Builds the table of detents: from the simulator where it tells them, else from the cockpit's
  /// Flaps.cfg. A missing file tells the operator and ends the process. Raises a RuntimeError for a
  /// line that is no list of numbers, for more detents than the table holds, and for one alone.
  void InitFlaps();
  /// Writes the line over the start of the cockpit's Flaps.cfg. Before InitFlaps() has read it the
  /// file is left alone: what would go over its start is its own line.
  void writeFile() const;

  IndexedArray<FlapDetent, 0, 16> FlapTable;

 private:
  std::string path() const;
  void takeDetentsFromText(const std::string& line);
  void spreadDetents();

  Server& server_;
  bool lineRead_ = false;
};

}  // namespace vorlent
