#pragma once

namespace vorlent {

/// Whether random walks and flights keep short, as VORLENT_SHORT_WALKS asks: set for ctest by the
/// presets with sanitizers, under which every step is ten times as long.
bool shortWalks();

/// Whether also those flights are flown that take long and tell little more, as VORLENT_ALL_FLIGHTS
/// asks: for the documents.
bool allFlights();

/// `full` steps, or a tenth of them on short walks.
int walkLength(int full);

}  // namespace vorlent
