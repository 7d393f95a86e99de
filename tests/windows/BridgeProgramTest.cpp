#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <string>
#include <thread>

#include "bridge/support/FakeXPlane.h"
#include "check/BridgeCheck.h"
#include "platform/PolledSockets.h"
#include "platform/SystemBus.h"
#include "support/eventually.h"
#include "support/raisedBy.h"
#include "windows/SimulatorProcess.h"

namespace vorlent {
namespace {

/// FakeXPlane behind a real socket, 30 frames a second, in a thread of its own.
class FlyingXPlane {
 public:
  FlyingXPlane() {
    constexpr std::uint16_t FirstPort = 47611;
    for (port_ = FirstPort; raisedBy([this] { open(); }) != 0 && port_ < FirstPort + 100;) ++port_;
    thread_ = std::thread([this] {
      while (!ended_) frame();
    });
  }
  ~FlyingXPlane() {
    ended_ = true;
    thread_.join();
  }
  FlyingXPlane(const FlyingXPlane&) = delete;
  FlyingXPlane& operator=(const FlyingXPlane&) = delete;

  std::string port() const { return std::to_string(port_); }

 private:
  void open() { socket_ = sockets_->datagrams("127.0.0.1", port_); }
  void frame() {
    std::this_thread::sleep_for(std::chrono::milliseconds(33));
    xp_.values["sim/cockpit2/clock_timer/zulu_time_seconds"] =
        static_cast<float>(++frames_ / 30 % 60);
    while (const auto asked = socket_->receive()) {
      bridge_ = asked->sender;
      xp_.takeDatagram(asked->bytes);
    }
    for (const std::string& packet : xp_.frame()) socket_->send(bridge_, packet);
  }

  FakeXPlane xp_;
  std::uint16_t port_ = 0;
  std::unique_ptr<PolledSockets> sockets_ = systemSockets();
  std::unique_ptr<PolledDatagrams> socket_;
  Endpoint bridge_;
  int frames_ = 0;
  std::atomic<bool> ended_ = false;
  std::thread thread_;
};

void pauseFor(int duration_ms) {
  std::this_thread::sleep_for(std::chrono::milliseconds(duration_ms));
}

TEST(BridgeProgramOnWindows, WithAnXPlanePassesTheCheck) {
  const FlyingXPlane xp;
  const SimulatorProcess bridge({"--xplane", "--host", "127.0.0.1", "--port", xp.port()},
                                "vorlent-bridge");
  ASSERT_EQ(bridge.greeting(), "ready");
  const auto bus = openSimulatorBus();
  OffsetLink link(*bus, pauseFor);
  ASSERT_TRUE(eventually([&link] {
    std::array<std::byte, 1> notReady{std::byte{1}};
    return link.read(0x3364, notReady) && notReady[0] == std::byte{0};
  }));
  std::string said;
  BridgeCheck check(link, {true, 2}, pauseFor, [&said](std::string_view text) { said += text; });
  EXPECT_TRUE(check.run()) << said;
  EXPECT_THAT(said, testing::Not(testing::HasSubstr("WRONG")));
}

}  // namespace
}  // namespace vorlent
