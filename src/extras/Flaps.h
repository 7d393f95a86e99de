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
  /// Writes the line over the start of the cockpit's Flaps.cfg. Before InitFlaps() has read it the
  /// file is left alone: what would go over its start is its own line.
  void writeFile() const;

 private:
  std::string path() const;
  void takeDetentsFromText(const std::string& line);
  void spreadDetents();

  modPublic& store_;
  const clsFSUIPC& link_;
  Operator& operator_;
  TextBox& line_;
  bool lineRead_ = false;
};

}  // namespace vorlent
