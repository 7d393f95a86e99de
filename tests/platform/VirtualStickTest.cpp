#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <memory>

#include "base/RuntimeError.h"
#include "platform/linux/BusFolder.h"
#include "platform/linux/LinuxControllers.h"
#include "platform/linux/SocketStickDevice.h"
#include "platform/linux/VirtualStick.h"
#include "platform/linux/WindowSocket.h"
#include "support/ScopedEnvironment.h"
#include "support/TempFolder.h"
#include "support/eventually.h"

namespace vorlent {
namespace {

using Result = ControllerResult;

ControllerState withX(std::int32_t x) {
  ControllerState state;
  state.x = x;
  return state;
}

class VirtualStickTest : public testing::Test {
 protected:
  VirtualStickTest() { open(); }
  void open() {
    device.reset();
    device = std::make_unique<SocketStickDevice>(busFolder(), "yoke", -1, ended);
  }
  bool servedUntil(const std::function<bool()>& holds) {
    return eventually([&] { return (device && !device->pause(1)) || holds(); });
  }
  bool arrives(const ControllerState& expected) {
    return servedUntil([&] {
      ControllerState state;
      return stick.Poll() == Result::Ok && stick.GetDeviceState(state) == Result::Ok &&
             state == expected;
    });
  }

  TempFolder folder;
  ScopedEnvironment bus{"VORLENT_BUS", folder / "bus"};
  volatile std::sig_atomic_t ended = 0;
  std::unique_ptr<SocketStickDevice> device;
  VirtualStick stick{folder / "bus", "yoke"};
};

TEST_F(VirtualStickTest, TellsItsWholeStateAtTheStartAndEveryChange) {
  ControllerState state{1, 2, 3, 4, 5, 6, {7, 8}, {0, 9000, 18000, -1}, {0x80, 0, 0x80}};
  device->show(state);
  ASSERT_EQ(stick.Acquire(), Result::Ok);
  EXPECT_TRUE(arrives(state));
  state.rz = 65535;
  state.buttons[31] = 0x80;
  device->show(state);
  EXPECT_EQ(stick.Poll(), Result::Ok);
  ControllerState read;
  EXPECT_EQ(stick.GetDeviceState(read), Result::Ok);
  EXPECT_EQ(read, state);
}

TEST_F(VirtualStickTest, IsNotReadyBeforeItsFirstStateHasCome) {
  ASSERT_EQ(stick.Acquire(), Result::Ok);  // connected, but not taken in yet
  EXPECT_EQ(stick.Poll(), Result::NotReady);
  ControllerState state = withX(4711);
  EXPECT_EQ(stick.GetDeviceState(state), Result::NotReady);
  EXPECT_EQ(state.x, 4711);
}

TEST_F(VirtualStickTest, TellsNothingBeforeItIsAcquired) {
  ControllerState state;
  EXPECT_EQ(stick.Poll(), Result::NotAcquired);
  EXPECT_EQ(stick.GetDeviceState(state), Result::NotAcquired);
}

TEST_F(VirtualStickTest, IsUnpluggedWhenItsProgramEndsAndWorksAgainWhenItIsBack) {
  device->show(withX(100));
  ASSERT_EQ(stick.Acquire(), Result::Ok);
  ASSERT_TRUE(arrives(withX(100)));
  device.reset();
  EXPECT_EQ(stick.Poll(), Result::Unplugged);
  EXPECT_EQ(stick.Acquire(), Result::Unplugged);
  EXPECT_EQ(stick.Poll(), Result::Unplugged);
  ControllerState state = withX(4711);
  EXPECT_EQ(stick.GetDeviceState(state), Result::Unplugged);
  EXPECT_EQ(state.x, 4711);
  open();
  device->show(withX(200));
  EXPECT_EQ(stick.Acquire(), Result::Ok);
  EXPECT_TRUE(arrives(withX(200)));
}

TEST_F(VirtualStickTest, AReaderThatDoesNotKeepUpGetsTheLastState) {
  ASSERT_EQ(stick.Acquire(), Result::Ok);
  ASSERT_TRUE(arrives(ControllerState{}));
  for (int x = 1; x <= 60000; ++x) device->show(withX(x));
  EXPECT_EQ(device->readers(), 1U);
  EXPECT_TRUE(arrives(withX(60000)));
}

TEST_F(VirtualStickTest, HasSixteenReadersAtMost) {
  std::vector<std::unique_ptr<VirtualStick>> sticks;
  const auto connect = [&] {
    sticks.push_back(std::make_unique<VirtualStick>(folder / "bus", "yoke"));
    ASSERT_EQ(sticks.back()->Acquire(), Result::Ok);
    ASSERT_TRUE(servedUntil([&] { return sticks.back()->Poll() != Result::NotReady; }));
  };
  for (int i = 0; i < 17; ++i) connect();
  EXPECT_EQ(device->readers(), 16U);
  EXPECT_EQ(sticks[15]->Poll(), Result::Ok);
  EXPECT_EQ(sticks[16]->Poll(), Result::Unplugged);
}

TEST_F(VirtualStickTest, AReaderThatLeavesIsForgotten) {
  {
    VirtualStick leaving(folder / "bus", "yoke");
    ASSERT_TRUE(leaving.find());
    ASSERT_TRUE(servedUntil([&] { return device->readers() == 1; }));
  }
  EXPECT_TRUE(servedUntil([&] { return device->readers() == 0; }));
}

TEST_F(VirtualStickTest, ASecondOneOfTheSameNameIsRefused) {
  try {
    const SocketStickDevice second(busFolder(), "yoke", -1, ended);
    FAIL() << "took the place of a living stick";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.description(), "Cannot listen at " + (folder / "bus/stick.yoke") +
                                       ": another program is listening there");
  }
}

TEST_F(VirtualStickTest, LeavesNoSocketBehind) {
  EXPECT_TRUE(std::filesystem::exists(folder / "bus/stick.yoke"));
  device.reset();
  EXPECT_FALSE(std::filesystem::exists(folder / "bus/stick.yoke"));
}

TEST_F(VirtualStickTest, WaitsForItsReader) {
  ASSERT_TRUE(stick.find());
  EXPECT_TRUE(device->awaitReader());
  EXPECT_EQ(device->readers(), 1U);
}

TEST_F(VirtualStickTest, AllWaitingEndsWithTheProgram) {
  ended = 1;
  EXPECT_FALSE(device->pause(60000));
  EXPECT_FALSE(device->awaitReader());
  EXPECT_EQ(device->nextLine(), std::nullopt);
}

TEST_F(VirtualStickTest, WithoutAnInputThereAreNoLines) {
  EXPECT_EQ(device->nextLine(), std::nullopt);
}

/// A stick that reads lines from a pipe.
class StickInput : public VirtualStickTest {
 protected:
  StickInput() {
    int ends[2];
    EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
    from = Descriptor(ends[0]);
    to = Descriptor(ends[1]);
    device.reset();
    device = std::make_unique<SocketStickDevice>(busFolder(), "yoke", from.number(), ended);
  }
  void write(const std::string& text) const {
    EXPECT_EQ(::write(to.number(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
  using Line = std::optional<std::string>;

  Descriptor from;
  Descriptor to;
};

TEST_F(StickInput, GivesLineAfterLineAndTheLastOneWithoutItsEnd) {
  write("x=1\n\npress 3\nlast");
  EXPECT_EQ(device->nextLine(), Line("x=1"));
  EXPECT_EQ(device->nextLine(), Line(""));
  EXPECT_EQ(device->nextLine(), Line("press 3"));
  to = Descriptor();
  EXPECT_EQ(device->nextLine(), Line("last"));
  EXPECT_EQ(device->nextLine(), std::nullopt);
}

TEST_F(StickInput, ALineThatNeverEndsIsCutAndKeepsEveryCharacter) {
  const std::string endless(10000, 'y');
  write(endless);
  to = Descriptor();
  std::string all;
  while (const Line line = device->nextLine()) {
    EXPECT_LE(line->size(), 8192U);
    all += *line;
  }
  EXPECT_EQ(all, endless);
}

/// The list as the server sees it.
class StickList : public VirtualStickTest {
 protected:
  std::vector<std::string> namesFound() {
    std::vector<std::string> names;
    for (const ControllerInfo& info : controllers.devices()) names.push_back(info.name);
    return names;
  }
  LinuxControllers controllers;
};

TEST_F(StickList, SticksStandInTheOrderOfTheirNames) {
  const SocketStickDevice a(busFolder(), "board-10", -1, ended),
      b(busFolder(), "board-9", -1, ended);
  EXPECT_EQ(namesFound(), (std::vector<std::string>{"board-9", "board-10", "yoke"}));
}

TEST_F(StickList, WhatIsNoLivingStickIsNotListed) {
  folder.write("bus/stick.file", "");
  folder.write("bus/stick.", "");
  const WindowSocket window(folder / "bus", "UIPCMAIN");
  const WindowSocket wrongName(folder / "bus", "stick.a b");
  EXPECT_EQ(namesFound(), std::vector<std::string>{"yoke"});
  device.reset();
  EXPECT_TRUE(namesFound().empty());
}

TEST_F(StickList, AListedStickCanBeReadByItsNumber) {
  device->show(withX(77));
  ASSERT_EQ(namesFound().size(), 1U);
  EXPECT_EQ(controllers.Poll(0), Result::NotAcquired);
  EXPECT_EQ(controllers.Acquire(0), Result::Ok);
  EXPECT_TRUE(servedUntil([&] { return controllers.Poll(0) == Result::Ok; }));
  ControllerState state;
  EXPECT_EQ(controllers.GetDeviceState(0, state), Result::Ok);
  EXPECT_EQ(state.x, 77);
  EXPECT_EQ(controllers.Acquire(1), Result::Unplugged);
  EXPECT_EQ(controllers.Poll(1), Result::Unplugged);
  EXPECT_EQ(controllers.GetDeviceState(1, state), Result::Unplugged);
}

TEST_F(StickList, AFolderThatOthersMayWriteToHasNoSticks) {
  namespace fs = std::filesystem;
  fs::permissions(folder / "bus", fs::perms::all);
  EXPECT_TRUE(namesFound().empty());
}

/// A stick that sends what it likes.
class RawStick : public testing::Test {
 protected:
  RawStick() {
    EXPECT_EQ(stick.Acquire(), Result::Ok);
    reader = Descriptor(accept4(window.descriptor(), nullptr, nullptr, SOCK_NONBLOCK));
  }
  bool send(const std::string& packet) const {
    return ::send(reader.number(), packet.data(), packet.size(), MSG_NOSIGNAL) ==
           static_cast<ssize_t>(packet.size());
  }
  static std::string packet(const ControllerState& state) {
    return {reinterpret_cast<const char*>(&state), sizeof state};
  }
  std::int32_t x() const {
    ControllerState state;
    EXPECT_EQ(stick.GetDeviceState(state), Result::Ok);
    return state.x;
  }

  TempFolder folder;
  WindowSocket window{folder.path(), "stick.raw"};
  VirtualStick stick{folder.path(), "raw"};
  Descriptor reader;
};

TEST_F(RawStick, PacketsOfAnotherSizeAreDropped) {
  send(packet(withX(5)));
  for (const std::size_t size : {1U, 79U, 81U, 4096U, 60000U})
    ASSERT_TRUE(send(std::string(size, '\1'))) << size;
  EXPECT_EQ(stick.Poll(), Result::Ok);
  EXPECT_EQ(x(), 5);
}

TEST_F(RawStick, WithoutOneGoodPacketItIsNotReady) {
  send(std::string(79, '\1'));
  EXPECT_EQ(stick.Poll(), Result::NotReady);
}

TEST_F(RawStick, TheLastOfThePacketsThatWaitCounts) {
  for (int i = 1; i <= 100; ++i) ASSERT_TRUE(send(packet(withX(i))));
  EXPECT_EQ(stick.Poll(), Result::Ok);
  EXPECT_EQ(x(), 100);
}

TEST_F(RawStick, OneThatNeverStopsDoesNotHoldUpThePoll) {
  constexpr int room = 1 << 20;
  setsockopt(reader.number(), SOL_SOCKET, SO_SNDBUF, &room, sizeof room);
  for (int i = 1; i <= 257; ++i) ASSERT_TRUE(send(packet(withX(i))));
  EXPECT_EQ(stick.Poll(), Result::Ok);
  EXPECT_EQ(x(), 256);
  EXPECT_EQ(stick.Poll(), Result::Ok);
  EXPECT_EQ(x(), 257);
}

TEST_F(RawStick, OneThatClosesIsUnplugged) {
  send(packet(withX(5)));
  EXPECT_EQ(stick.Poll(), Result::Ok);
  reader = Descriptor();
  EXPECT_EQ(stick.Poll(), Result::Unplugged);
  EXPECT_EQ(stick.Poll(), Result::Unplugged);
}

TEST_F(RawStick, WhatItTellsAtItsEndStillCounts) {
  send(packet(withX(5)));
  EXPECT_EQ(stick.Poll(), Result::Ok);
  send(packet(withX(6)));
  reader = Descriptor();
  EXPECT_EQ(stick.Poll(), Result::Ok);
  EXPECT_EQ(x(), 6);
  EXPECT_EQ(stick.Poll(), Result::Unplugged);
}

TEST_F(RawStick, OneThatClosesBehindPacketsThatAreNoneIsUnpluggedAtOnce) {
  send(std::string(79, '\1'));
  reader = Descriptor();
  EXPECT_EQ(stick.Poll(), Result::Unplugged);
}

TEST(VirtualStickFolder, ThatIsTooDeepForASocketHasNoStick) {
  EXPECT_FALSE(VirtualStick(std::string(200, 'a'), "yoke").find());
}

}  // namespace
}  // namespace vorlent
