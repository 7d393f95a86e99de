#pragma once

#include <cstdint>
#include <string_view>

/// Numbers of the second autoflight: members of a width, which fault where a number does not fit.
namespace vorlent::independent {

/// What ends a cycle at the statement where it happens.
struct Fault {};

/// A single-precision member: keeps the nearest single, and nothing that is not a finite number.
class Single {
 public:
  Single() = default;
  Single(double value) { *this = value; }  // NOLINT: a number like any other
  Single& operator=(double value);
  operator double() const { return value_; }  // NOLINT

 private:
  float value_ = 0;
};

/// The nearest whole number, a half to the even one; faults beyond the limits.
std::int32_t wholeWithin(double value, double lowest, double highest);

/// A 16-bit member: rounds, and faults beyond its range.
class Word {
 public:
  Word() = default;
  Word(double value) { *this = value; }  // NOLINT
  Word& operator=(double value);
  operator int() const { return value_; }  // NOLINT

 private:
  int value_ = 0;
};

/// A 32-bit member, likewise.
class Long {
 public:
  Long() = default;
  Long(double value) { *this = value; }  // NOLINT
  Long& operator=(double value);
  operator double() const { return value_; }  // NOLINT

 private:
  std::int32_t value_ = 0;
};

/// A decimal number with a point, blanks around it apart; any other text is a fault.
double decimal(std::string_view text);

/// Faults over a divisor of 0.
double over(double dividend, double divisor);

/// Without the blanks at both ends.
std::string_view trim(std::string_view text);

}  // namespace vorlent::independent
