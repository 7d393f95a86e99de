#pragma once

#include <string>

namespace vorlent {

class Operator;
class TextBox;
class clsFSUIPC;
struct modPublic;

class Flaps {
 public:
  /// `line`: the main window's box for the positions.
  Flaps(modPublic& store, const clsFSUIPC& link, Operator& op, TextBox& line)
      : store_(store), link_(link), operator_(op), line_(line) {}

  /// Builds the table of detents: from the simulator where it tells them, else from the cockpit's
  /// Flaps.cfg. A missing file tells the operator and ends the process. Raises a RuntimeError for a
  /// line that is no list of numbers, for more detents than the table holds, and for one alone.
  void InitFlaps();
  /// Writes the line over the start of the Flaps.cfg in `cockpitPath`, if InitFlaps() has read that
  /// one; any other is left alone: the line is not its own.
  void writeFile(const std::string& cockpitPath) const;

 private:
  void takeDetentsFromText(const std::string& line);
  void spreadDetents();

  modPublic& store_;
  const clsFSUIPC& link_;
  Operator& operator_;
  TextBox& line_;
  std::string readFrom_;  ///< the cockpit's path; empty before
};

}  // namespace vorlent
