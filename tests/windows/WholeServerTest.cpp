#include <chrono>
#include <filesystem>

#include "support/places.h"
#include "windows/WindowsLinkTest.h"

namespace vorlent {
namespace {

/// The server in its folder as shipped, and a simulator in a process of its own.
class WholeServerOnWindows : public WindowsLinkTest {
 protected:
  WholeServerOnWindows() {
    std::filesystem::copy(dataFolder(), folder.path(), std::filesystem::copy_options::recursive);
  }

  void start() {
    server.failureDomain.run([this] { server.main->Main(); });
  }
  /// Polls until the condition holds, for 20 s at most.
  template <class Condition>
  bool flownUntil(Condition holds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!holds()) {
      if (std::chrono::steady_clock::now() > end) return false;
      loop.advance(60);
    }
    return true;
  }
};

TEST_F(WholeServerOnWindows, StartsLinksAndStreamsTheFlightToADisplay) {
  const SimulatorProcess simulator(
      {"--speed", "100", "--script", folder / "Flights/round-trip.txt"}, "vorlent-sim");
  ASSERT_EQ(simulator.greeting(), "ready");
  start();
  ASSERT_EQ(server.mainClient->sbStatusBar.panelText(1), "OK");
  EXPECT_EQ(link.FSVersion(), "FSX");

  ASSERT_TRUE(network.deliver(static_cast<std::uint16_t>(server.store.BasePort),
                              {"127.0.0.1", 40000}, "Connection on a b 100 fmc1"));
  network.takeSent();
  loop.advance(200);
  const auto sent = network.takeSent();
  ASSERT_FALSE(sent.empty());
  EXPECT_THAT(sent.back().text, testing::StartsWith("Data "));
  EXPECT_EQ(sent.back().to.port, 40000);

  EXPECT_TRUE(flownUntil([this] { return server.store.OnGround == 0; }));
  EXPECT_GT(server.store.Ias, 100.0F);
}

TEST_F(WholeServerOnWindows, AMissingSystemFileEndsTheStart) {
  server.installation.systemFiles.push_back(systemFolder() + "\\missing.dll");
  start();
  EXPECT_EQ(loop.exitStatus(), 1);
  const auto boxes = op.takeBoxes();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].text,
            "You are missing a system file\n" + systemFolder() + "\\missing.dll not found");
  EXPECT_EQ(boxes[0].icon, BoxIcon::Plain);
}

}  // namespace
}  // namespace vorlent
