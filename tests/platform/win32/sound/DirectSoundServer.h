#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#include "platform/SystemSoundOutput.h"
#include "platform/ThreadedSoundDevice.h"
#include "support/Loudspeaker.h"
#include "support/TestServer.h"
#include "support/places.h"

namespace vorlent {

/// The whole server on DirectSound, in front of an aircraft that the test flies. Its timers go by
/// the real clock, since the loudspeaker does.
class DirectSoundServer : public testing::Test {
 protected:
  using Moment = Loudspeaker::Moment;

  void SetUp() override {
    std::filesystem::copy(dataFolder() + "/Cockpits/737-700/sound",
                          host.folder / "Cockpits/737-700/sound",
                          std::filesystem::copy_options::recursive);
    host.bus.put<std::uint16_t>(0x0AEC, 2);  // engines
    host.bus.put<std::uint8_t>(0x0609, 1);   // jets
    host.start();
    host.form.Settings(Setting::AircraftSound).Checked(true);
    groundSpeed(130);
    host.bus.put<std::int32_t>(0x02C8, -520);  // 400 ft/min down
    advanced_ = std::chrono::steady_clock::now();
    host.greet(0);
  }
  const HeardSamples& flyUntil(Moment moment) {
    while (advanced_ < moment) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
      const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(
          std::chrono::steady_clock::now() - advanced_);
      host.loop.advance(static_cast<int>(passed.count()));
      advanced_ += passed;
    }
    return loudspeaker.heardUntil(moment);
  }
  double level_dB(int channel, Moment from, Moment until) {
    return flyUntil(until).level_dB(channel, from, until);
  }
  template <class T>
  Moment put(unsigned offset, T value) {
    host.bus.put<T>(offset, value);
    return std::chrono::steady_clock::now();
  }
  Moment onGround(bool yes) { return put<std::uint16_t>(0x0366, yes ? 1 : 0); }
  Moment groundSpeed(double knots) {
    return put<std::uint32_t>(0x02B4, static_cast<std::uint32_t>(knots * 1852 / 3600 * 65536));
  }

  Loudspeaker loudspeaker;
  ThreadedSoundDevice device{std::make_unique<SystemSoundOutput>(),
                             ThreadedSoundDevice::Silence::NotOffered};
  TestServer host{&device};

 private:
  Moment advanced_;
};

}  // namespace vorlent
