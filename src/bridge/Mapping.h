#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/OffsetMemory.h"

namespace vorlent {

/// How many bytes a value has, and what they are.
enum class Width : std::uint8_t { U8, S8, U16, S16, U32, S32, S64, Double, Text };

/// How a number of the simulator becomes those bytes.
enum class Coding : std::uint8_t {
  Number,        ///< rounded to steps; what is beyond the ends of the width stops there
  Turn,          ///< degrees; the width is one turn
  ApproachTurn,  ///< degrees; 65535 is one turn
  Digits,        ///< four decimal digits, two a byte
  Distance,      ///< nautical miles as four characters, "06.8" or "120."; what is below 0 is none
};

enum class Direction : std::uint8_t {
  In,       ///< shown as the simulator has it
  Both,     ///< shown, and written there
  Kept,     ///< stays as a client writes it; the simulator is not asked
  Constant  ///< always the same
};

/// How a value goes to the simulator.
enum class Route : std::uint8_t {
  Stream,   ///< with the others that move all the time: trims and throttles
  Change,   ///< by itself, when it changes
  Command,  ///< by the command `command`, when what the simulator has is another
};

/// A value of the simulator and how many of the row's units one of its units is.
struct Term {
  Term(std::string_view name, double perUnit);

  std::string property;
  double factor;
};

/// One value. Its number is the sum of the terms and `plus`: in steps of the offset, in degrees for
/// the turns, in units of 10 kHz for frequencies.
struct MappingRow {
  std::uint16_t offset = 0;
  Width width = Width::U16;
  std::string name;
  Coding coding = Coding::Number;
  Direction direction = Direction::In;
  std::vector<Term> terms;
  double plus = 0;
  double lowest = 0;  ///< of what is written, in units of the simulator's
  double highest = 0;
  Route route = Route::Change;
  std::string command;
  /// Clients write its bytes one by one.
  bool bytewise = false;
  /// The aircraft that it is for, by the beginning of its name; empty for all. Such a row takes the
  /// place of one for all.
  std::string aircraft;

  MappingRow& turns(Coding how = Coding::Turn) { return coding = how, *this; }
  MappingRow& digits() { return coding = Coding::Digits, *this; }
  MappingRow& add(double constant) { return plus = constant, *this; }
  /// Written as well, within these ends.
  MappingRow& written(double least, double most, Route by = Route::Change);
  MappingRow& streamed(double least, double most) { return written(least, most, Route::Stream); }
  MappingRow& byCommand(const std::string& what);
  MappingRow& byteByByte() { return bytewise = true, *this; }
  MappingRow& onlyFor(const std::string& which) { return aircraft = which, *this; }
};

/// What a simulator has for the interface, and what it has not.
struct Mapping {
  /// An offset that reads 0, or several up to `last`.
  struct Missing {
    std::uint16_t offset;
    std::string name;
    std::string why;
    std::uint16_t last = offset;

    bool holds(std::uint16_t which) const { return offset <= which && which <= last; }
  };

  MappingRow& in(std::uint16_t offset, Width width, const std::string& name,
                 const std::vector<Term>& terms);
  MappingRow& constant(std::uint16_t offset, Width width, const std::string& name, double value);
  MappingRow& kept(std::uint16_t offset, Width width, const std::string& name, double first = 0);

  std::string simulator;
  std::string source;  ///< where the names of the properties stand
  std::vector<MappingRow> rows;
  std::vector<Missing> missing;
};

std::size_t sizeOf(Width width);

/// The rows that hold for this aircraft, one an offset, in the order of the offsets.
std::vector<MappingRow> rowsFor(const Mapping& mapping, const std::string& aircraft);
/// Every property that the rows name, once, in their order.
std::vector<std::string> propertiesOf(const std::vector<MappingRow>& rows);

/// Shows a number in the row's units at its offset. False, and nothing is shown, for a NaN.
bool show(OffsetMemory& memory, const MappingRow& row, double number);
/// What stands at the row's offset, in its units; nothing for a NaN, an infinity or text.
std::optional<double> shown(const OffsetMemory& memory, const MappingRow& row);

/// In the units of the row's only property, within its ends.
double propertyFrom(const MappingRow& row, double number);
/// Whether two numbers of the row are the same to a step of its offset.
bool alike(const MappingRow& row, double a, double b);

}  // namespace vorlent
