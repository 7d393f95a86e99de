// What the sounds cost: a poll of an aircraft that rolls, with sounds and without, and the memory
// that a thousand engine starts take.

#include <ctime>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "platform/ThreadedSoundDevice.h"
#include "support/PolledServer.h"
#include "support/figures.h"
#include "support/measure.h"
#include "support/places.h"

namespace {

using namespace vorlent;

/// A library without a loudspeaker: all that is left is what the server and its sound thread do.
class SilentVoice : public SoundVoice {
 public:
  void levels(int, int) override {}
  void start(std::size_t, bool) override {}
  bool playing() override { return true; }
  std::size_t frame() override { return 0; }
};

class SilentOutput : public SoundOutput {
 public:
  std::vector<std::string> devices() override { return {"bench"}; }
  bool open(std::size_t, std::intptr_t) override { return true; }
  bool openAgain() override { return true; }
  bool connected() override { return true; }
  void close() override {}
  std::unique_ptr<SoundVoice> voice(std::shared_ptr<const Wave>) override {
    return std::make_unique<SilentVoice>();
  }
};

/// Of the server's thread.
double cpu_us() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) * 1e-3;
}

int resident_kB() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("VmRSS:")) return std::stoi(line.substr(6));
  return 0;
}

/// A server whose first client is up, with the shipped sounds on the real sound thread.
class RollingServer {
 public:
  RollingServer() {
    std::filesystem::copy(dataFolder() + "/Cockpits/737-700/sound",
                          host_.folder / "Cockpits/737-700/sound");
    host_.bus.put<std::uint16_t>(0x0366, 1);
    host_.bus.put<std::uint8_t>(0x0609, 1);
    host_.bus.put<std::uint8_t>(0x0AEC, 2);
    host_.greet(0);
    host_.poll();
  }
  void sound(bool on) { host_.form.Settings(Setting::AircraftSound).Checked(on); }
  /// Microseconds a poll, of a speed that grows.
  double polls_us(int count) {
    const double began = cpu_us();
    for (int i = 0; i < count; ++i) {
      host_.bus.put<std::uint32_t>(0x02B4, static_cast<std::uint32_t>(i % 1000) * 4000);
      host_.poll();
    }
    return (cpu_us() - began) / count;
  }
  void startEngine() {
    host_.bus.put<std::uint8_t>(0x0892, 1);
    host_.bus.put<std::uint16_t>(0x0894, 0);
    host_.poll();
    host_.bus.put<std::uint8_t>(0x0892, 0);
    host_.bus.put<std::uint16_t>(0x0894, 1);
    host_.poll();
  }
  int sounds() const { return host_.server.sound->Buffers(); }

 private:
  ThreadedSoundDevice device_{std::make_unique<SilentOutput>(),
                              ThreadedSoundDevice::Silence::NotOffered};
  PolledServer host_{".", [](FakeSimulatorBus&) {}, &device_};
};

}  // namespace

void vorlent::measure() {
  RollingServer server;
  std::vector<double> with;
  std::vector<double> without;
  for (int round = 0; round < 200; ++round) {
    server.sound(false);
    without.push_back(server.polls_us(300));
    server.sound(true);
    with.push_back(server.polls_us(300));
  }
  const double floor_us = quantile(without, 0.5);
  const double poll_us = quantile(with, 0.5);
  printRow("one poll on the ground with all sounds on", fixed(floor_us, 1) + " µs without",
           fixed(poll_us, 1) + " µs, " + fixed(poll_us / floor_us, 2) + " x", "≤ 1.1 x");

  server.startEngine();
  const int before_kB = resident_kB();
  const int loaded = server.sounds();
  for (int start = 0; start < 1000; ++start) server.startEngine();
  printRow("memory of " + std::to_string(server.sounds() - loaded) + " more engine starts", "-",
           std::to_string(resident_kB() - before_kB) + " kB", "-");
}
