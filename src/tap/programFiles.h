#pragma once

#include <string>
#include <vector>

#include "recording/Event.h"

namespace vorlent {

/// What the server reads of its program folder, as it is now: settings and catalogues, and the
/// folders Cockpits and Templates. What a recording has no use for (the log, programs, documents)
/// is not told, and sounds and what is larger than 1 MB are told without content.
std::vector<recorded::FileKept> programFiles(const std::string& programFolder);

}  // namespace vorlent
