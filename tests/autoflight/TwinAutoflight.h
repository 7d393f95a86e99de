#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "autoflight/TwinPlan.h"
#include "support/IndependentAutoflight.h"
#include "support/PolledServer.h"

namespace vorlent {

/// The autoflight of a started server and the independent one, on the same inputs.
class TwinAutoflight {
 public:
  TwinAutoflight();

  /// Runs both and returns what differs afterwards, in the writes to the byte, the annunciators or
  /// any number, as "what: theirs, ours"; empty when nothing does.
  std::string run(const std::function<void(Server&)>& product,
                  const std::function<void(IndependentAutoflight&)>& independent);
  /// The start of a cycle, and one cycle.
  std::string Init();
  std::string AFDS();
  /// Puts the inputs of the independent one into the server's store.
  void applyInputs();
  /// Puts the independent one's share where the server reads it.
  void putShare();

  PolledServer server;
  IndependentAutoflight twin;
  int faults = 0;  ///< commands and cycles that a fault has cut in both
  int cycles = 0;
  bool cut = false;  ///< the last cycle, by a fault
  /// What the server wrote in the last run.
  std::vector<FakeSimulatorBus::Write> lastWrites;
  std::size_t written = 0;  ///< writes compared
  /// What was written into the file ACTIVE in the last run.
  std::vector<std::string> lastActive;
  std::map<std::string, int> logged;  ///< lines of the log compared, by what they begin with

 private:
  std::string difference();
  std::string differenceOfWrites() const;
  std::string differenceOfActive();
  std::string differenceOfLog();

  LinesOfFile log_;
};

}  // namespace vorlent
