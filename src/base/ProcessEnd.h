#pragma once

namespace vorlent {

/// Thrown to end the process: unwinds to the entry from the event loop, where FailureDomain leaves
/// the loop. Nothing else may catch it. Status 0 is an orderly end, 1 any other.
struct ProcessEnd {
  int exitStatus;
};

}  // namespace vorlent
