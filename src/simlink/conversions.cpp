#include "simlink/conversions.h"

#include <cmath>

#include "base/numbers.h"

namespace vorlent {

float FahrenheitToCelsius(double fahrenheit) {
  return toSingle(std::trunc(finite((fahrenheit - 32) / 1.8)));
}

}  // namespace vorlent
