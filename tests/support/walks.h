#pragma once

namespace vorlent {

/// Whether random walks and flights keep short, as VORLENT_SHORT_WALKS asks: set for ctest by the
/// presets with sanitizers, under which every step is ten times as long.
bool shortWalks();

/// `full` steps, or a tenth of them on short walks.
int walkLength(int full);

}  // namespace vorlent
