#pragma once

#include <functional>
#include <string>

#include "bridge/Mapping.h"
#include "bridge/PropertyValues.h"

namespace vorlent {

/// The way to one simulator.
class SimulatorLink {
 public:
  using Note = std::function<void(const std::string& text)>;

  /// How long a simulator may be silent until it counts as gone.
  static constexpr double LongestSilence_s = 2;

  virtual ~SimulatorLink() = default;
  /// Takes in what waits and sends what is due. `now_s` are seconds since some fixed moment.
  virtual void advance(double now_s) = 0;
  /// Sends it at once, where the simulator is to be had. `value` is in the units of the row's only
  /// property.
  virtual void write(const MappingRow& row, double value, double now_s) = 0;
  /// Whether all that the aircraft is flown by comes in.
  virtual bool flows(double now_s) const = 0;
  virtual const PropertyValues& values() const = 0;
  /// How many times something came in; who looks at the values again looks at this first.
  virtual unsigned long revision() const = 0;
  /// The simulator's name for what it flies; empty while it is not known.
  virtual std::string aircraft() const = 0;
};

}  // namespace vorlent
