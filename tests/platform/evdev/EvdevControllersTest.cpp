#include <gtest/gtest.h>

#include "platform/evdev/MockInput.h"
#include "platform/evdev/boards.h"
#include "platform/linux/BusFolder.h"
#include "platform/linux/LinuxControllers.h"
#include "platform/linux/SocketStickDevice.h"
#include "support/ScopedEnvironment.h"
#include "support/eventually.h"

namespace vorlent {
namespace {

using Result = ControllerResult;

class EvdevControllers : public testing::Test {
 protected:
  std::vector<std::string> namesFound() {
    std::vector<std::string> names;
    for (const ControllerInfo& info : controllers.devices()) names.push_back(info.name);
    return names;
  }
  std::vector<std::string> connectionsFound() {
    std::vector<std::string> connections;
    for (const ControllerInfo& info : controllers.devices()) connections.push_back(info.connection);
    return connections;
  }
  /// Plugs in one board, as event 5, and acquires it.
  void acquireOnly(const MockBoard& board) {
    input.plugIn(5, board);
    ASSERT_EQ(controllers.devices().size(), 1U);
    ASSERT_EQ(controllers.Acquire(0), Result::Ok);
  }
  ControllerState stateOf(std::size_t device) {
    ControllerState state;
    EXPECT_EQ(controllers.Poll(device), Result::Ok);
    EXPECT_EQ(controllers.GetDeviceState(device, state), Result::Ok);
    return state;
  }
  bool becomesUnplugged(std::size_t device) {
    return eventually([&] { return controllers.Poll(device) == Result::Unplugged; });
  }

  MockInput input;
  TempFolder folder;
  ScopedEnvironment bus{"VORLENT_BUS", folder / "bus"};
  LinuxControllers controllers;
};

TEST_F(EvdevControllers, WithoutABoardTheListIsEmpty) {
  EXPECT_TRUE(controllers.devices().empty());
  EXPECT_EQ(controllers.Acquire(0), Result::Unplugged);
}

TEST_F(EvdevControllers, KeyboardsMiceTouchPadsAndMotionSensorsAreNotListed) {
  input.plugIn(0, keyboard("usb-0000:00:14.0-1/input0"));
  input.plugIn(1, mouse("usb-0000:00:14.0-2/input0"));
  input.plugIn(2, touchPad("usb-0000:00:14.0-3/input0"));
  input.plugIn(3, motionSensor("usb-0000:00:14.0-4/input0"));
  input.plugIn(4, axesOnly("usb-0000:00:14.0-5/input0"));
  EXPECT_EQ(namesFound(), std::vector<std::string>{"Home-made"});
}

TEST_F(EvdevControllers, BoardsStandInTheOrderOfTheirPortsNotOfTheirPluggingIn) {
  input.plugIn(3, interfaceBoard("usb-0000:00:14.0-10/input0"));
  input.plugIn(4, throttleQuadrant("usb-0000:00:14.0-2.4/input0"));
  input.plugIn(20, axesOnly("usb-0000:00:14.0-2.1/input0"));
  EXPECT_EQ(namesFound(),
            (std::vector<std::string>{"Home-made", "Throttle quadrant", "12-bit interface board"}));
}

TEST_F(EvdevControllers, TwoEqualBoardsKeepTheirPlacesWhenTheyComeUpTheOtherWayRound) {
  const std::vector<std::string> ports{"usb-0000:00:14.0-1/input0", "usb-0000:00:14.0-2/input0"};
  input.plugIn(3, interfaceBoard(ports[0]));
  input.plugIn(4, interfaceBoard(ports[1]));
  EXPECT_EQ(connectionsFound(), ports);
  input.unplugAll();
  input.plugIn(3, interfaceBoard(ports[1]));
  input.plugIn(4, interfaceBoard(ports[0]));
  EXPECT_EQ(connectionsFound(), ports);
}

TEST_F(EvdevControllers, TwoControllersOnOneBoardAreTwoParts) {
  input.plugIn(9, throttleQuadrant("usb-0000:00:14.0-1/input0"));
  input.plugIn(10, interfaceBoard("usb-0000:00:14.0-1/input0"));
  EXPECT_EQ(connectionsFound(), (std::vector<std::string>{"usb-0000:00:14.0-1/input0",
                                                          "usb-0000:00:14.0-1/input0 part 2"}));
  EXPECT_EQ(namesFound().front(), "Throttle quadrant");
}

TEST_F(EvdevControllers, APartStaysTheSecondWhileTheFirstMayNotBeReadYet) {
  input.plugIn(8, throttleQuadrant("usb-1/input0"));
  input.plugIn(9, interfaceBoard("usb-1/input0"));
  input.lock(8);
  EXPECT_EQ(connectionsFound(), std::vector<std::string>{"usb-1/input0 part 2"});
  input.unlock(8);
  EXPECT_EQ(connectionsFound(), (std::vector<std::string>{"usb-1/input0", "usb-1/input0 part 2"}));
}

TEST_F(EvdevControllers, ABluetoothControllerIsKnownByItsOwnAddress) {
  MockBoard board = axesOnly("00:1a:7d:da:71:13");
  board.bus = BUS_BLUETOOTH;
  board.uniq = "d0:27:96:12:34:56";
  input.plugIn(1, board);
  EXPECT_EQ(connectionsFound(), std::vector<std::string>{"d0:27:96:12:34:56"});
}

TEST_F(EvdevControllers, NoMoreThanEightAreListed) {
  for (unsigned i = 1; i <= 9; ++i)
    input.plugIn(i, axesOnly("usb-0000:00:14.0-" + std::to_string(i) + "/input0"));
  const auto connections = connectionsFound();
  ASSERT_EQ(connections.size(), 8U);
  EXPECT_EQ(connections.back(), "usb-0000:00:14.0-8/input0");
}

TEST_F(EvdevControllers, VirtualSticksComeBehindTheBoards) {
  const volatile std::sig_atomic_t ended = 0;
  const SocketStickDevice stick(busFolder(), "a", -1, ended);
  input.plugIn(1, throttleQuadrant("usb-0000:00:14.0-2/input0"));
  input.plugIn(2, axesOnly("usb-0000:00:14.0-1/input0"));
  EXPECT_EQ(namesFound(), (std::vector<std::string>{"Home-made", "Throttle quadrant", "a"}));
}

TEST_F(EvdevControllers, ABoardTellsNothingBeforeItIsAcquired) {
  input.plugIn(5, axesOnly("usb-1/input0"));
  controllers.devices();
  ControllerState state;
  EXPECT_EQ(controllers.Poll(0), Result::NotAcquired);
  EXPECT_EQ(controllers.GetDeviceState(0, state), Result::NotAcquired);
}

TEST_F(EvdevControllers, TheStateAtTheStartIsWhatTheBoardHasThen) {
  MockBoard board = throttleQuadrant("usb-1/input0");
  board.pressed = {BTN_JOYSTICK + 2};
  acquireOnly(board);
  ControllerState expected;
  expected.x = 0;
  expected.y = 65535;
  expected.slider = {32800, 0};  // 512 of 1023
  expected.buttons[2] = 0x80;
  EXPECT_EQ(stateOf(0), expected);
}

TEST_F(EvdevControllers, EachAxisOfA12BitBoardArrivesUnderItsNameAndScaled) {
  acquireOnly(interfaceBoard("usb-1/input0"));
  input.send(5, {{EV_ABS, ABS_X, 0},
                 {EV_ABS, ABS_Y, 1},
                 {EV_ABS, ABS_Z, 1000},
                 {EV_ABS, ABS_RX, 2000},
                 {EV_ABS, ABS_RY, 3000},
                 {EV_ABS, ABS_RZ, 4094},
                 {EV_ABS, ABS_THROTTLE, 4095},
                 {EV_ABS, ABS_RUDDER, 100}});
  ASSERT_TRUE(eventually([&] { return stateOf(0).slider[1] == 1600; }));
  // 65535 / 4095 = 16.0037: 1000 -> 16003.7, 2000 -> 32007.3, 3000 -> 48011.0, 4094 -> 65519.0
  const ControllerState state = stateOf(0);
  EXPECT_EQ(state.x, 0);
  EXPECT_EQ(state.y, 16);
  EXPECT_EQ(state.z, 16004);
  EXPECT_EQ(state.rx, 32007);
  EXPECT_EQ(state.ry, 48011);
  EXPECT_EQ(state.rz, 65519);
  EXPECT_EQ(state.slider[0], 65535);
}

TEST_F(EvdevControllers, SignedAxesAreScaledFromTheirOwnRange) {
  acquireOnly(axesOnly("usb-1/input0"));
  EXPECT_EQ(stateOf(0).x, 32768);  // the middle, 127 of 254
  EXPECT_EQ(stateOf(0).rz, 0);
  input.send(5, {{EV_ABS, ABS_RZ, 127}});
  EXPECT_TRUE(eventually([&] { return stateOf(0).rz == 65535; }));
}

TEST_F(EvdevControllers, All32ButtonsOfABoardAreNumberedInItsOrder) {
  acquireOnly(interfaceBoard("usb-1/input0"));
  for (unsigned button = 0; button < 32; ++button) {
    const unsigned code = button < 16 ? BTN_JOYSTICK + button : BTN_TRIGGER_HAPPY + button - 16;
    ControllerState expected = stateOf(0);
    expected.buttons[button] = 0x80;
    input.send(5, {{EV_KEY, code, 1}});
    ASSERT_TRUE(eventually([&] { return stateOf(0) == expected; })) << button;
    input.send(5, {{EV_KEY, code, 0}});
    ASSERT_TRUE(eventually([&] { return stateOf(0).buttons[button] == 0; })) << button;
  }
}

TEST_F(EvdevControllers, ButtonsBeyondThe32ndAreLeftOut) {
  MockBoard board = axesOnly("usb-1/input0");
  board.keys = codes(BTN_JOYSTICK, 16) + codes(BTN_TRIGGER_HAPPY, 17);
  board.pressed = {BTN_TRIGGER_HAPPY + 15, BTN_TRIGGER_HAPPY + 16};
  acquireOnly(board);
  ControllerState expected;
  expected.x = 32768;
  expected.buttons[31] = 0x80;
  EXPECT_EQ(stateOf(0), expected);
}

TEST_F(EvdevControllers, ButtonsWithoutJoystickNumbersComeBehindTheOthers) {
  MockBoard board = axesOnly("usb-1/input0");
  board.keys = {BTN_MISC, BTN_JOYSTICK, BTN_JOYSTICK + 1};
  board.pressed = {BTN_MISC};
  acquireOnly(board);
  EXPECT_EQ(stateOf(0).buttons[0], 0);
  EXPECT_EQ(stateOf(0).buttons[2], 0x80);
}

struct HatCase {
  std::int32_t right;
  std::int32_t down;
  std::int32_t direction;
};

TEST_F(EvdevControllers, TheHatTellsItsDirectionInHundredthsOfADegree) {
  acquireOnly(interfaceBoard("usb-1/input0"));
  EXPECT_EQ(stateOf(0).POV, (std::array<std::int32_t, 4>{-1, -1, -1, -1}));
  for (const HatCase& hat : {HatCase{0, -1, 0},
                             {1, -1, 4500},
                             {1, 0, 9000},
                             {1, 1, 13500},
                             {0, 1, 18000},
                             {-1, 1, 22500},
                             {-1, 0, 27000},
                             {-1, -1, 31500},
                             {0, 0, -1}}) {
    input.send(5, {{EV_ABS, ABS_HAT0X, hat.right}, {EV_ABS, ABS_HAT0Y, hat.down}});
    EXPECT_TRUE(eventually([&] { return stateOf(0).POV[0] == hat.direction; })) << hat.direction;
  }
}

TEST_F(EvdevControllers, AfterDroppedEventsTheStateIsFetchedFromTheBoard) {
  MockBoard board = interfaceBoard("usb-1/input0");
  acquireOnly(board);
  input.send(5, {{EV_ABS, ABS_X, 100}, {EV_KEY, BTN_JOYSTICK, 1}});
  ASSERT_TRUE(eventually([&] { return stateOf(0).buttons[0] == 0x80; }));
  // The board's own state is still the one of the start: the middle, nothing pressed.
  input.send(5, {{EV_SYN, SYN_DROPPED, 0}});
  EXPECT_TRUE(eventually([&] { return stateOf(0).buttons[0] == 0; }));
  EXPECT_EQ(stateOf(0).x, 32776);  // 2048 of 4095
}

TEST_F(EvdevControllers, AnUnpluggedBoardSaysSoAndLeavesTheLastStateAlone) {
  acquireOnly(axesOnly("usb-1/input0"));
  input.unplug(5);
  ASSERT_TRUE(becomesUnplugged(0));
  ControllerState state;
  state.x = 4711;
  EXPECT_EQ(controllers.Acquire(0), Result::Unplugged);
  EXPECT_EQ(controllers.Poll(0), Result::Unplugged);
  EXPECT_EQ(controllers.GetDeviceState(0, state), Result::Unplugged);
  EXPECT_EQ(state.x, 4711);
}

TEST_F(EvdevControllers, ABoardThatIsPluggedInAgainWorksAgainUnderAnotherEventNumber) {
  acquireOnly(axesOnly("usb-1/input0"));
  input.unplug(5);
  ASSERT_TRUE(becomesUnplugged(0));
  input.plugIn(7, axesOnly("usb-1/input0"));
  ASSERT_TRUE(eventually([&] { return controllers.Acquire(0) == Result::Ok; }));
  input.send(7, {{EV_ABS, ABS_X, 127}});
  EXPECT_TRUE(eventually([&] { return stateOf(0).x == 65535; }));
}

TEST_F(EvdevControllers, ABoardThatUdevAnnouncesIsFoundWithoutWaitingForTheNextSearch) {
  LinuxControllers rarelySearching(std::chrono::hours(1));
  input.plugIn(5, axesOnly("usb-1/input0"));
  ASSERT_EQ(rarelySearching.devices().size(), 1U);
  ASSERT_EQ(rarelySearching.Acquire(0), Result::Ok);
  input.unplug(5);
  ASSERT_TRUE(eventually([&] {
    rarelySearching.Poll(0);
    return rarelySearching.Acquire(0) == Result::Unplugged;
  }));
  input.plugIn(7, axesOnly("usb-1/input0"));
  EXPECT_TRUE(eventually([&] { return rarelySearching.Acquire(0) == Result::Ok; }));
}

TEST_F(EvdevControllers, EqualBoardsThatComeBackUnderEachOthersEventNumbersDoNotSwap) {
  input.plugIn(5, interfaceBoard("usb-1/input0"));
  input.plugIn(6, interfaceBoard("usb-2/input0"));
  ASSERT_EQ(controllers.devices().size(), 2U);
  ASSERT_EQ(controllers.Acquire(0), Result::Ok);
  ASSERT_EQ(controllers.Acquire(1), Result::Ok);
  input.unplugAll();
  ASSERT_TRUE(becomesUnplugged(0));
  ASSERT_TRUE(becomesUnplugged(1));
  input.plugIn(5, interfaceBoard("usb-2/input0"));
  input.plugIn(6, interfaceBoard("usb-1/input0"));
  ASSERT_TRUE(eventually([&] { return controllers.Acquire(0) == Result::Ok; }));
  ASSERT_TRUE(eventually([&] { return controllers.Acquire(1) == Result::Ok; }));
  input.send(6, {{EV_ABS, ABS_X, 4095}});
  EXPECT_TRUE(eventually([&] { return stateOf(0).x == 65535; }));
  EXPECT_EQ(stateOf(1).x, 32776);
}

TEST_F(EvdevControllers, UnpluggingOneBoardLeavesTheOthersTheirNumbers) {
  input.plugIn(5, throttleQuadrant("usb-1/input0"));
  input.plugIn(6, axesOnly("usb-2/input0"));
  ASSERT_EQ(controllers.devices().size(), 2U);
  ASSERT_EQ(controllers.Acquire(0), Result::Ok);
  ASSERT_EQ(controllers.Acquire(1), Result::Ok);
  input.unplug(5);
  ASSERT_TRUE(becomesUnplugged(0));
  input.send(6, {{EV_ABS, ABS_X, -127}});
  EXPECT_TRUE(eventually([&] { return stateOf(1).x == 0; }));
  EXPECT_EQ(controllers.devices().size(), 1U);
}

}  // namespace
}  // namespace vorlent
