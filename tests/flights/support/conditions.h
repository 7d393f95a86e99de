#pragma once

#include <string>
#include <vector>

#include "Flight.h"

namespace vorlent {

/// A condition and what it is called in the name of a flight, such as "737-5000-heavy".
struct NamedCondition {
  std::string name;
  Condition condition;
};

/// Each plant, light and heavy, clean at 5000 feet (250 knots), 15000 feet (280 knots) and 35000
/// feet (Mach 0.78), and at 5000 feet with flaps 5 (190 knots).
std::vector<NamedCondition> conditions(Turbulence turbulence = Turbulence::None);

/// A wind as it blows over the route to the west, 60 knots from 5000 feet on, and what it is
/// called: "head", "tail", "left" or "right", by where it comes from.
struct NamedWind {
  std::string name;
  WindSettings wind;
};
std::vector<NamedWind> routeWinds();

/// Each plant, light and as heavy as it may land: "737-light". Nothing else is said.
std::vector<NamedCondition> landingConditions();

}  // namespace vorlent
