#pragma once

#include <cstdint>

namespace vorlent {

struct modPublic;

/// The value that goes out with a push button's code: `state`, which alternates between 0 and 1.
/// With the oldest simulators five codes of radios send what the cockpit holds in ButtonStates.
float ButtonState(const modPublic& store, std::int16_t code, std::int16_t state);

}  // namespace vorlent
