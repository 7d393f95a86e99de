#pragma once

namespace vorlent {

/// What a measuring program does; it prints its rows. Raises std::exception when it cannot.
void measure();

}  // namespace vorlent
