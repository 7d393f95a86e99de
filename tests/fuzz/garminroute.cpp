#include <cstddef>
#include <cstdint>
#include <string>

#include "planRoute.h"

// An input is a Garmin plan, .fpl.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vorlent::plan_route::tryRoute(vorlent::readGarminRoute, std::string(data, data + size));
  return 0;
}
