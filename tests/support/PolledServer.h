#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "support/IndependentRecord.h"
#include "support/TestServer.h"

namespace vorlent {

/// A started server that polls when the test says so, and what the independent reading makes of the
/// same offsets.
class PolledServer : public TestServer {
 public:
  /// `prepare` puts into the simulator's offsets what has to stand there at the start.
  explicit PolledServer(
      const std::string& decimalMark = ".",
      const std::function<void(FakeSimulatorBus&)>& prepare = [](FakeSimulatorBus&) {},
      SoundDevice* player = nullptr);

  /// One poll of the product.
  void poll() { server.main->PollDispatch(); }
  /// Writes one value into the simulator's offsets, polls and reads one variable of the store.
  template <class Raw, class Variable>
  Variable polled(std::uint32_t offset, Raw raw, Variable modPublic::*variable) {
    bus.put(offset, raw);
    poll();
    return store.*variable;
  }

  /// Gives the independent reading everything that no poll writes, as the server holds it now.
  void takeOver(IndependentRecord& independent) const;
  /// Polls both and returns the first token in which they differ, as "name: theirs, ours"; empty
  /// when there is none.
  std::string firstDifference(IndependentRecord& independent);
  /// The fields of the record between "Data " and the end.
  std::vector<std::string> fields() const { return IndependentRecord::fieldsOf(store.DataRecord); }
};

}  // namespace vorlent
