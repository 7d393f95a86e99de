#include <cstdint>
#include <stdexcept>

#include "endtoend/OffsetClient.h"
#include "endtoend/ServerStick.h"

namespace vorlent {
namespace {

constexpr std::uint32_t Altimeter = 0x0330;
constexpr std::uint32_t Aileron = 0x0BB6;
constexpr std::uint32_t Gear = 0x0BE8;

/// Controls of the aircraft that a board and a client move in turn, over the real programs. The
/// boards are those of the cockpit as shipped.
class Hardware : public ServerStick {
 protected:
  void startWithShipped(int stickNumber, const std::vector<std::string>& steps) {
    startWith(cockpit.folder.read(stickFileOf(stickNumber)), steps);
    simulator = std::make_unique<OffsetClient>(cockpit.folder / "bus");
    display.send(cockpit.basePort, "Connection on a b 100 fmc1");
    if (!display.receive("Data ")) throw std::runtime_error("no record");
  }
  void clientSends(const std::string& triple) const {
    display.send(cockpit.basePort, "p " + triple + " ");
  }
  template <class T>
  bool becomes(std::uint32_t offset, T value) {
    return eventually([&] { return simulator->read<T>(offset) == value; });
  }

  std::unique_ptr<OffsetClient> simulator;
  DisplaySocket display;
};

TEST_F(Hardware, TheYokesAxisTurnsTheAileronAsAClientsValueDoes) {
  startWithShipped(0, {"x=32768", "y=32768"});
  ASSERT_TRUE(shows("16383"));
  clientSends("A 13 8192");
  EXPECT_TRUE(becomes<std::int16_t>(Aileron, 8192));
  stick->type("x=16384");
  EXPECT_TRUE(becomes<std::int16_t>(Aileron, -8192));
  stick->type("x=49152");
  EXPECT_TRUE(becomes<std::int16_t>(Aileron, 8192));
  clientSends("A 13 -8192");
  EXPECT_TRUE(becomes<std::int16_t>(Aileron, -8192));
}

/// 1013.25 hPa in sixteenths.
TEST_F(Hardware, TheYokesButtonSetsTheStandardPressureAsAClientsPressDoes) {
  constexpr std::uint16_t Standard = 16212;
  startWithShipped(0, {"x=32768", "y=32768"});
  simulator->write<std::uint16_t>(Altimeter, 16000);
  clientSends("P 160 1");
  EXPECT_TRUE(becomes(Altimeter, Standard));
  simulator->write<std::uint16_t>(Altimeter, 16000);
  stick->type("press 2");
  EXPECT_TRUE(becomes(Altimeter, Standard));
}

TEST_F(Hardware, TheQuadrantsSwitchMovesTheGearAsAClientsDoes) {
  startWithShipped(1, {"release", "1"});
  clientSends("T 27 1");
  EXPECT_TRUE(becomes(Gear, 16383));
  clientSends("T 27 0");
  EXPECT_TRUE(becomes(Gear, 0));
  stick->type("press 1");
  EXPECT_TRUE(becomes(Gear, 16383));
  stick->type("release 1");
  EXPECT_TRUE(becomes(Gear, 0));
}

}  // namespace
}  // namespace vorlent
