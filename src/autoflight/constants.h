#pragma once

namespace vorlent::autoflight {

/// What the filters take for a cycle. The timer's 400 ms and the work in it came to this when it
/// was measured. docs/peculiarities.md: the filters' cycle.
constexpr double Cycle_s = 0.44;

}  // namespace vorlent::autoflight
