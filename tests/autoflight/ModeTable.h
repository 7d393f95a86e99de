#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vorlent {

struct Server;

/// Holds what the annunciators and the modes show against the table of what may stand together, and
/// gives the rows that are broken, a line each; empty when none is.
std::string brokenModeRows(const Server& server);

/// How many rows the table has for annunciators.
std::size_t annunciationRows();
/// The rows of the table whose annunciation stands now, by their place in it.
void markStanding(const Server& server, std::vector<bool>& seen);
/// A row's annunciation, as "RollEngagedMode LNAV".
std::string annunciationRow(std::size_t row);

}  // namespace vorlent
