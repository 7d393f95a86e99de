#pragma once

#include <string>
#include <vector>

#include "commands/commands.h"
#include "sticks/LastMoved.h"

namespace vorlent {

class Label;
class frmCStick;
struct Sticks;

/// What a stick's window shows of the board while it is in sight: bars and lamps, what each row
/// sends as it is sent, and what the simulator holds since.
class StickDisplay {
 public:
  StickDisplay(Sticks& sticks, frmCStick& stick) : sticks_(sticks), stick_(stick) {}

  struct Readings {
    std::array<std::int16_t, 4> raw, conditioned;
    ButtonLevels lines;    ///< as the board has them
    ButtonLevels decoded;  ///< as the poll takes them
  };

  // A tick, in this order.
  void beginTick();
  void readings(const Readings& now);
  /// The row sends a triple.
  void sent(StickRow row, const std::string& triple);
  /// The next of the triples that were sent has been carried out.
  void carriedOut();
  void endTick();

  /// What goes at the pace of an eye: what the simulator holds, the curve's marker, the board.
  void tmrstickTick();

 private:
  struct Asked {
    StickRow row;
    std::vector<SimulatorField> fields;
  };

  void find(const Readings& now);
  void select(StickRow row);
  Label& sentLabel(StickRow row);
  Label& answerLabel(StickRow row);
  std::string held(const std::vector<SimulatorField>& fields) const;

  Sticks& sticks_;
  frmCStick& stick_;
  LastMoved lastMoved_;
  std::vector<StickRow> order_;  ///< of this tick's triples
  std::size_t done_ = 0;
  std::vector<Asked> asked_;  ///< one for each row that has sent something
};

}  // namespace vorlent
