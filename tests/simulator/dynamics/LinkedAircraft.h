#pragma once

#include <cstring>
#include <functional>
#include <optional>
#include <vector>

#include "../FlightSample.h"
#include "simulator/dynamics/TwinJet.h"
#include "support/PolledServer.h"

namespace vorlent {

/// The built-in aircraft with a started server at its offsets: written through the server's
/// accessors, read through its poll.
class LinkedAircraft {
 public:
  explicit LinkedAircraft(StartingState state = StartingState::Level) { restart(state); }

  void restart(StartingState state) {
    TwinJet::Settings settings;
    settings.start = state;
    aircraft.emplace(memory, settings);
    // The server learns the number of engines.
    polled();
  }
  /// What the server wrote for it, in order.
  std::vector<FakeSimulatorBus::Write> write(const std::function<void(Server&)>& control) {
    copyToBus();
    server.bus.writes.clear();
    control(server.server);
    for (const auto& written : server.bus.writes)
      for (std::size_t i = 0; i < written.bytes.size(); ++i)
        memory.write(written.offset + i, written.bytes[i]);
    return server.bus.writes;
  }
  void fly(double seconds) {
    for (double t = 0; t < seconds - 1e-9; t += 0.05) aircraft->step(0.05);
  }
  /// As the server sees it now.
  modPublic& polled() {
    copyToBus();
    server.poll();
    return server.store;
  }
  FlightSample sample() const { return sampleOf(memory); }
  double real(std::size_t offset) const { return memory.read<double>(offset); }

  PolledServer server;
  OffsetMemory memory;
  std::optional<TwinJet> aircraft;

 private:
  void copyToBus() {
    for (std::size_t at = 0; at < OffsetMemory::Size; ++at)
      server.bus.offsets[at] = memory.read<std::uint8_t>(at);
  }
};

}  // namespace vorlent
