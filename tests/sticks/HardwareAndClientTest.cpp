#include <array>

#include "clientlink/ClientAdmission.h"
#include "commands/CommandTable.h"
#include "core/frmMainClient.h"
#include "simlink/Poll.h"
#include "sticks/StickTest.h"

namespace vorlent {
namespace {

/// Two servers at the same moment of the same flight. One has a board, the other a client; what the
/// board's reading and the client's message do is compared. No time passes: nothing else acts.
class HardwareAndClient : public ::testing::Test {
 protected:
  void SetUp() override {
    addSticks(hardware, 2);
    client.server.admission =
        std::make_unique<ClientAdmission>(client.loop, client.network, client.form, "", true);
    for (TestServer* side : {&hardware, &client}) start(*side);
    hardware.form.txtSticks.Text("2");
    hardware.server.failureDomain.run([this] { hardware.form.chkStick.Value(1); });
    client.greet(0);
    for (TestServer* side : {&hardware, &client}) side->bus.writes.clear();
    collectFaults(hardware, faults_[0]);
    collectFaults(client, faults_[1]);
  }

  static void start(TestServer& side) {
    side.bus.put<std::int16_t>(0x0AEC, 2);        // engines
    side.bus.put<std::uint16_t>(0x034E, 0x2345);  // COM 1, 123.45
    side.bus.put<std::uint16_t>(0x0350, 0x1030);  // NAV 1, 110.30
    side.bus.put<std::uint16_t>(0x034C, 0x0345);  // ADF 1, 345
    side.bus.put<std::int16_t>(0x0C4E, 90);       // OBS 1
    side.start();
    side.server.main->PollDispatch();
    ASSERT_EQ(side.exitStatus(), std::nullopt);
  }

  frmCStick& stick(std::size_t index = 0) { return *hardware.server.sticks.CStick.at(index); }
  ControllerState& board(std::size_t index = 0) { return hardware.controllers.all.at(index).state; }
  void useKinds(std::size_t index, const std::string& kinds) {
    for (int i = 0; i < 4; ++i)
      stick(index).OnOff(i).Tag(kinds.substr(static_cast<std::size_t>(i), 1));
    stick(index).Form_Init();
  }
  void tick(std::size_t index = 0) {
    hardware.server.failureDomain.run([this, index] { stick(index).PollStick(); });
  }

  /// One tick of the stick and the message that is to do the same.
  void expectSame(const std::string& triple, std::size_t index = 0) {
    tick(index);
    client.deliver(0, "p " + triple + " ");
    EXPECT_EQ(hardware.bus.writes, client.bus.writes) << triple;
    EXPECT_EQ(faults_[0], faults_[1]) << triple;
    EXPECT_EQ(hardware.keyboard.pressed, client.keyboard.pressed) << triple;
    writes_ += hardware.bus.writes.size();
    hardware.bus.writes.clear();
    client.bus.writes.clear();
  }

  /// Beside its writes a command leaves the same state behind, which the record tells.
  void expectSameRecord() {
    for (TestServer* side : {&hardware, &client}) side->server.main->PollDispatch();
    EXPECT_EQ(hardware.store.DataRecord, client.store.DataRecord);
    EXPECT_GT(writes_, 0U);
  }

  TestServer hardware;
  TestServer client;

 private:
  /// What the command routines tell of their faults; a client's message is told besides.
  static void collectFaults(TestServer& side, std::vector<std::string>& faults) {
    side.form.sbStatusBar.addView([&](int panel) {
      const std::string text = side.form.sbStatusBar.panelText(panel);
      if (text.starts_with("Set")) faults.push_back(text);
    });
  }

  std::size_t writes_ = 0;
  std::array<std::vector<std::string>, 2> faults_;
};

/// A line's second tick sends 0 while it is held.
TEST_F(HardwareAndClient, EachPushButtonDoesTheSame) {
  useKinds(0, "0100");
  board().buttons[0] = 0x80;
  for (const CommandRow& row : buttonRows()) {
    const std::string code = std::to_string(row.code);
    stick().optSwitches(0).Tag(code);
    expectSame("P " + code + " 1");
    expectSame("P " + code + " 0");
  }
  expectSameRecord();
}

TEST_F(HardwareAndClient, EachExtraButtonBehindTwoLinesDoesTheSame) {
  useKinds(0, "0000");
  board().buttons[0] = board().buttons[1] = 0x80;
  for (const CommandRow& row : buttonRows()) {
    const std::string code = std::to_string(row.code);
    hardware.server.sticks.CMore[0]->optSwitches(0).Tag(code);
    expectSame("P " + code + " 1");
    expectSame("P " + code + " 0");
  }
  expectSameRecord();
}

TEST_F(HardwareAndClient, AKeystrokeIsTheSameWhereClientsMaySendThem) {
  useKinds(0, "0100");
  board().buttons[0] = 0x80;
  stick().optSwitches(0).Tag("2065");
  expectSame("P 2065 1");
  EXPECT_EQ(client.keyboard.pressed.size(), 1U);
}

TEST_F(HardwareAndClient, EachSwitchDoesTheSameClosedAndOpen) {
  for (const CommandRow& row : toggleRows()) {
    const std::string code = std::to_string(row.code);
    stick().optSwitches(0).Tag(code);
    board().buttons[0] = 0x80;
    expectSame("T " + code + " 1");
    board().buttons[0] = 0;
    expectSame("T " + code + " 0");
  }
  expectSameRecord();
}

/// Line A runs before line B on the first board, behind it on the second.
TEST_F(HardwareAndClient, EachEncoderDoesTheSameEitherWay) {
  constexpr std::size_t Down = 0;
  constexpr std::size_t Up = 1;
  for (const std::size_t way : {Down, Up}) useKinds(way, "2222");
  const auto turn = [this](std::size_t way) {
    auto& lines = board(way).buttons;
    std::uint8_t& first = lines[way == Down ? 0 : 1];
    std::uint8_t& second = lines[way == Down ? 1 : 0];
    std::uint8_t& next = first == second ? first : second;
    next = next == 0 ? 0x80 : 0;
  };
  for (const CommandRow& row : encoderRows()) {
    const std::string code = std::to_string(row.code);
    for (const std::size_t way : {Down, Up, Up, Down}) {
      stick(way).optSwitches(0).Tag(code);
      turn(way);
      expectSame("E " + code + (way == Down ? " -1" : " 1"), way);
    }
  }
  expectSameRecord();
}

/// A lever's reading, 0 to 65535, and what its code makes of it.
struct Lever {
  const char* code;
  std::int32_t reading;
  const char* value;
};

TEST_F(HardwareAndClient, EachLeverDoesTheSameAsTheValueInItsUnit) {
  const Lever levers[] = {
      {"0", 65535, "360"},       {"1", 65535, "9"},         {"2", 65535, "9"},
      {"3", 65535, "9"},         {"4", 65535, "9"},         {"5", 65535, "1050"},
      {"6", 65535, "65000"},     {"7", 32768, "20000"},     {"8", 65535, "360"},
      {"9", 65535, "2"},         {"10", 65535, "500"},      {"11", 65535, "-7000"},
      {"12", 65535, "-3500"},    {"13", 65535, "-16384"},   {"14", 16384, "8191"},
      {"15", 65535, "16384"},    {"16", 65535, "-16384"},   {"17", 4002, "2001"},
      {"18", 4000, "0"},         {"19", 65535, "32767"},    {"20", 65535, "136"},
      {"21", 65535, "0.974"},    {"22", 65535, "16376"},    {"23", 65535, "7"},
      {"24", 65535, "2"},        {"25", 65535, "2"},        {"29", 65535, "4"},
      {"30", 65535, "4"},        {"34", 32768, "50"},       {"35", 65535, "100"},
      {"36", 65535, "100"},      {"39", 65535, "117"},      {"40", 65535, "0.95"},
      {"41", 65535, "117"},      {"42", 65535, "0.95"},     {"43", 65535, "100"},
      {"44", 65535, "100"},      {"48", 32768, "8192"},     {"49", 65535, "100"},
      {"50", 65535, "100"},      {"51", 32768, "50"},       {"54", 65535, "100"},
      {"55", 65535, "100"},      {"56", 65535, "100"},      {"59", 65535, "10"},
      {"60", 32768, "186"},      {"61", 65535, "0"},        {"62", 65535, "5"},
      {"63", 65535, "5"},        {"64", 65535, "136"},      {"65", 65535, "0.974"},
      {"66", 65535, "136"},      {"67", 65535, "0.974"},    {"68", 65535, "136"},
      {"69", 65535, "0.974"},    {"70", 65535, "117"},      {"71", 65535, "0.95"},
      {"72", 65535, "117"},      {"73", 65535, "0.95"},     {"86", 65535, "250.0076"},
      {"87", 65535, "10.00031"}, {"88", 65535, "10.00031"}, {"107", 65535, "40.00122"},
  };
  for (const Lever& lever : levers) {
    stick().optAxes(0).Tag(lever.code);
    board().x = lever.reading;
    expectSame(std::string("A ") + lever.code + " " + lever.value);
    stick().optAxes(0).Tag("61");
    board().x = 0;
    expectSame("A 61 0");
  }
  expectSameRecord();
}

}  // namespace
}  // namespace vorlent
