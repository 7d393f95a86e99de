#include <gmock/gmock.h>

#include <csignal>
#include <optional>

#include "bridge/support/LoopbackSimulators.h"
#include "endtoend/Cockpit.h"
#include "endtoend/OffsetClient.h"
#include "support/eventually.h"

namespace vorlent {
namespace {

using testing::HasSubstr;
using testing::Not;

/// The bridge as a program beside the others of its cockpit, its simulator a fake in this process.
class BridgeProgram : public testing::Test {
 protected:
  BridgeProgram() {
    cockpit.addProgram("vorlent-bridge");
    cockpit.addProgram("vorlent-check");
  }
  void bridge(const std::vector<std::string>& options) {
    running = cockpit.program("vorlent-bridge", options);
    ASSERT_TRUE(running->waitForLine("ready")) << running->output();
  }
  void bridgeToFlightGear(std::uint16_t port) {
    bridge({"--flightgear", "--port", std::to_string(port)});
  }
  bool becomes(bool ready) {
    OffsetClient client(cockpit.folder / "bus");
    return eventually([&] { return (client.read<std::uint8_t>(0x3364) == 0) == ready; });
  }
  bool isReady() { return becomes(true); }
  std::string checked() {
    const auto program = cockpit.program("vorlent-check", {"--seconds", "2"});
    const int status = program->waitForEnd().value_or(-1);
    return std::to_string(status) + "\n" + program->output();
  }

  Cockpit cockpit{1};
  std::unique_ptr<Process> running;
};

TEST_F(BridgeProgram, WithAFlightGearPassesTheCheck) {
  const std::uint16_t port = freePorts(3);
  const LoopbackFlightGear fg(port);
  bridgeToFlightGear(port);
  ASSERT_TRUE(isReady()) << running->output();
  const std::string said = checked();
  EXPECT_THAT(said, testing::StartsWith("0\n"));
  EXPECT_THAT(said, Not(HasSubstr("WRONG")));
}

TEST_F(BridgeProgram, WithAnXPlanePassesTheCheck) {
  const LoopbackXPlane xp;
  bridge({"--xplane", "--host", "127.0.0.1", "--port", std::to_string(xp.port())});
  ASSERT_TRUE(isReady()) << running->output();
  const std::string said = checked();
  EXPECT_THAT(said, testing::StartsWith("0\n"));
  EXPECT_THAT(said, Not(HasSubstr("WRONG")));
}

TEST_F(BridgeProgram, OutlivesItsSimulatorAndSaysSo) {
  const std::uint16_t port = freePorts(3);
  std::optional<LoopbackFlightGear> fg(port);
  bridgeToFlightGear(port);
  ASSERT_TRUE(isReady());
  fg.reset();
  EXPECT_TRUE(becomes(false));
  fg.emplace(port);
  EXPECT_TRUE(isReady());
  running->signal(SIGTERM);
  EXPECT_EQ(running->waitForEnd(), 0);
  EXPECT_THAT(running->output(), HasSubstr("FlightGear: no data"));
}

TEST_F(BridgeProgram, ASecondBridgeIsRefused) {
  const std::uint16_t port = freePorts(3);
  bridgeToFlightGear(port);
  const auto samePort =
      cockpit.program("vorlent-bridge", {"--flightgear", "--port", std::to_string(port)});
  EXPECT_EQ(samePort->waitForEnd(), 1);
  EXPECT_THAT(samePort->output(), HasSubstr("another program has it"));
  const auto sameBus = cockpit.program("vorlent-bridge", {"--xplane", "--host", "127.0.0.1"});
  EXPECT_EQ(sameBus->waitForEnd(), 1);
  EXPECT_THAT(sameBus->output(), HasSubstr("UIPCMAIN"));
}

TEST_F(BridgeProgram, WritesTheProtocolFilesAndListsWhatIsMapped) {
  const auto written =
      cockpit.program("vorlent-bridge", {"--write-protocol", cockpit.folder.path()});
  EXPECT_EQ(written->waitForEnd(), 0) << written->output();
  EXPECT_THAT(cockpit.folder.read("vorlent-out.xml"), HasSubstr("<output>"));
  EXPECT_THAT(cockpit.folder.read("vorlent-in.xml"), HasSubstr("<input>"));
  const auto listed = cockpit.program("vorlent-bridge", {"--xplane", "--list"});
  EXPECT_EQ(listed->waitForEnd(), 0);
  EXPECT_THAT(listed->output(), HasSubstr("Reads 0:"));
}

TEST_F(BridgeProgram, SaysWhichProtocolFileItCannotWrite) {
  const std::string folder = cockpit.folder.path() + "/nowhere";
  const auto program = cockpit.program("vorlent-bridge", {"--write-protocol", folder});
  EXPECT_EQ(program->waitForEnd(), 1);
  EXPECT_THAT(program->output(), HasSubstr(folder + "/vorlent-out.xml: Path not found"));
}

TEST_F(BridgeProgram, WithoutASimulatorOrWithTwoItSaysWhatIsWrong) {
  for (const auto& options : std::vector<std::vector<std::string>>{
           {}, {"--flightgear", "--xplane"}, {"--xplane", "--write-protocol", "."}}) {
    const auto program = cockpit.program("vorlent-bridge", options);
    EXPECT_EQ(program->waitForEnd(), 2) << program->output();
  }
  const auto unknown =
      cockpit.program("vorlent-bridge", {"--xplane", "--host", "no-such-machine.invalid"});
  EXPECT_EQ(unknown->waitForEnd(), 1);
  EXPECT_THAT(unknown->output(), HasSubstr("No machine is known"));
}

}  // namespace
}  // namespace vorlent
