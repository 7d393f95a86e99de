#pragma once

#include <string>

namespace vorlent {

class RecordingReader;

/// What a check of a recording found.
struct CheckResult {
  bool same = false;
  std::string report;  ///< for the user, lines
};

/// Runs a server on the recording and holds what it writes against what was written then. Raises
/// RuntimeError with a sentence for the user for a recording that cannot be checked.
CheckResult checkRecording(RecordingReader& reader);

}  // namespace vorlent
