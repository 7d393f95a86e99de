#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "bridge/Mapping.h"
#include "bridge/SimulatorLink.h"
#include "simulator/OffsetMemory.h"
#include "simulator/RequestServer.h"

namespace vorlent {

/// A simulator behind the simulator interface: what comes over the link is shown in the offsets,
/// and what clients write there goes over the link.
class Bridge {
 public:
  using Clock = std::function<double()>;  ///< seconds since some fixed moment
  using Note = SimulatorLink::Note;

  /// How long a written value stands until the simulator's own counts again.
  static constexpr double Hold_s = 0.5;
  /// How long the bridge waits for the other bytes of a value that is written byte by byte.
  static constexpr double Settling_s = 0.02;

  /// All must outlive it. `aircraft` in place of what the simulator says that it flies.
  Bridge(OffsetMemory& memory, const Mapping& mapping, SimulatorLink& link, Clock clock, Note note,
         std::string aircraft = "");

  /// Answers a client's request with what has come up to now.
  std::int32_t answer(std::span<std::byte> block);
  void advance();

 private:
  struct Control {
    double number = 0;  ///< what was written, in the row's units
    double heldUntil_s = 0;
    bool held = false;
    double due_s = 0;
    bool waits = false;  ///< for its other bytes
  };
  struct Row {
    MappingRow row;
    std::vector<std::size_t> slots;
    Control control;
  };

  void choose(const std::string& aircraft);
  void showAll(double now_s);
  void showRow(Row& row, double now_s);
  bool isHeld(Row& row, double number, double now_s);
  void takeWrite(std::size_t offset, std::size_t size);
  void takeWrite(Row& row, double now_s);
  void send(Row& row, double now_s);
  void sendWhatIsDue(double now_s);
  void tellReadiness(bool ready);
  void noteUnmapped(std::size_t offset, std::size_t size);

  OffsetMemory& memory_;
  const Mapping& mapping_;
  SimulatorLink& link_;
  Clock clock_;
  Note note_;
  RequestServer requests_;
  std::string forced_;
  std::string aircraft_;
  std::vector<Row> rows_;
  std::set<std::size_t> told_;
  unsigned long shown_ = 0;
  bool ready_ = false;
};

}  // namespace vorlent
