#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/TestServer.h"

namespace vorlent {

/// A server with all four sounds confirmed and the menu checked, whose polls are given by hand:
/// each takes the variables as the test has put them.
class SoundTest : public ::testing::Test {
 protected:
  SoundTest() {
    host.start();
    host.form.Settings(Setting::AircraftSound).Checked(true);
    sounds.rumble = {"rumble.wav", 60, 1, 95, 1, 5};
    sounds.bump = {"bump.wav", 10, 0.1F, 100, 1};
    sounds.tyres = {"tyres.wav", 80, 1};
    sounds.start = {"start.wav", 70, 1};
    v.EngineCount = 2;
    v.EngineType = 1;
    v.EnginePan(1) = 20;
    v.EnginePan(2) = 80;
  }

  /// The first client comes up, and what that asks of the device is not looked at.
  void connect() {
    host.greet(0);
    host.bus.put<std::uint8_t>(0x0AEC, 2);
    v.EngineCount = 2;
    device.calls.clear();
  }
  using Calls = std::vector<std::string>;
  /// What one poll asks of the device.
  Calls poll() {
    host.server.soundEvents->PollStep();
    return device.takeCalls();
  }
  void polls(int count) {
    for (int i = 0; i < count; ++i) poll();
  }
  static bool has(const Calls& calls, const std::string& call) {
    return std::find(calls.begin(), calls.end(), call) != calls.end();
  }

  TestServer host;
  modPublic& v = host.store;
  SoundSettings& sounds = *host.server.soundSettings;
  SoundEvents& events = *host.server.soundEvents;
  RecordingSoundDevice& device = host.soundDevice;
};

}  // namespace vorlent
