#pragma once

#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>

#include "platform/RequestListener.h"
#include "simulator/OffsetMemory.h"
#include "simulator/SimulatorHost.h"
#include "support/ScopedEnvironment.h"

namespace vorlent {

/// A simulator in the test's own process, whose aircraft is where the test puts it: a twin jet.
class GroundSimulator {
 public:
  using Moment = std::chrono::steady_clock::time_point;

  explicit GroundSimulator(const std::string& busFolder);
  ~GroundSimulator();
  GroundSimulator(const GroundSimulator&) = delete;
  GroundSimulator& operator=(const GroundSimulator&) = delete;

  /// Writes one value and gives the moment.
  template <class T>
  Moment put(std::size_t offset, T value) {
    const std::lock_guard lock(mutex_);
    memory_.write(offset, value);
    return std::chrono::steady_clock::now();
  }
  Moment onGround(bool yes) { return put<std::uint16_t>(0x0366, yes ? 1 : 0); }
  Moment groundSpeed(double knots) {
    return put<std::uint32_t>(0x02B4, static_cast<std::uint32_t>(knots * 1852 / 3600 * 65536));
  }
  Moment descent(double ft_min) {
    return put<std::int32_t>(0x02C8, static_cast<std::int32_t>(-ft_min * 0.3048 / 60 * 256));
  }
  Moment bankLeft(double degrees) {
    return put<std::int32_t>(0x057C, static_cast<std::int32_t>(degrees / 360 * 4294967296.0));
  }
  Moment starter(bool on) { return put<std::uint8_t>(0x0892, on ? 1 : 0); }

 private:
  class Still : public Aircraft {
   public:
    void step(double) override {}
    AircraftState state() const override { return {}; }
  };

  ScopedEnvironment bus_;
  std::mutex mutex_;
  OffsetMemory memory_;
  Still aircraft_;
  SimulatorHost host_{memory_, aircraft_, {}, [](const std::string&) {}};
  std::unique_ptr<RequestListener> listener_;
  std::atomic<bool> ending_{false};
  std::thread serving_;
};

}  // namespace vorlent
