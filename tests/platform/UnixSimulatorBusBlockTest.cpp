#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "gtest/gtest.h"
#include "platform/linux/UnixSimulatorBus.h"
#include "support/OrdinaryUser.h"

namespace vorlent {
namespace {

std::string hexadecimal(long number) {
  char text[20];
  std::snprintf(text, sizeof text, "%lX", static_cast<unsigned long>(number));
  return text;
}

class UnixSimulatorBusBlock : public testing::Test {
 protected:
  ~UnixSimulatorBusBlock() override {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
  }
  bool exists() const { return std::filesystem::exists(path); }
  /// As another process would leave it.
  static void leaveBehind(const std::string& file) { std::ofstream(file) << "old"; }

  const std::string id = hexadecimal(getpid());
  const std::string name = "VorlentTest:" + id + ":1";
  const std::string path = "/dev/shm/VorlentTest." + id + ".1";
  UnixSimulatorBus bus;
};

TEST_F(UnixSimulatorBusBlock, IsSharedMemoryOfItsNameWithDotsForTheUserAlone) {
  ASSERT_NE(bus.createBlock(name, 32768).block, 0);
  struct stat found {};
  ASSERT_EQ(stat(path.c_str(), &found), 0);
  EXPECT_EQ(found.st_size, 32768);
  EXPECT_EQ(found.st_mode & 0777, 0600u);
}

TEST_F(UnixSimulatorBusBlock, IsTheUsersWhateverTheUmask) {
  const mode_t former = umask(0777);
  const bool made = bus.createBlock(name, 32768).block != 0;
  umask(former);
  ASSERT_TRUE(made);
  struct stat found {};
  ASSERT_EQ(stat(path.c_str(), &found), 0);
  EXPECT_EQ(found.st_mode & 0777, 0600u);
}

TEST_F(UnixSimulatorBusBlock, IsWrittenAndReadByBothSides) {
  std::byte* view = bus.mapBlock(bus.createBlock(name, 32768).block);
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(view[0], std::byte{0});
  view[32767] = std::byte{0x5A};
  std::ifstream file(path, std::ios::binary);
  file.seekg(32767);
  EXPECT_EQ(file.get(), 0x5A);
  std::fstream(path, std::ios::binary | std::ios::in | std::ios::out).put('\x21');
  EXPECT_EQ(view[0], std::byte{0x21});
  bus.unmapBlock(view);
}

TEST_F(UnixSimulatorBusBlock, WithANameThatThisProcessUsesAlreadyExists) {
  const auto first = bus.createBlock(name, 32768);
  UnixSimulatorBus another;
  for (UnixSimulatorBus* second : {&bus, &another}) {
    const auto result = second->createBlock(name, 32768);
    EXPECT_EQ(result.block, 0);
    EXPECT_TRUE(result.alreadyExists);
  }
  EXPECT_NE(bus.mapBlock(first.block), nullptr);
}

TEST_F(UnixSimulatorBusBlock, LeftOverUnderOurProcessNumberIsReplaced) {
  leaveBehind(path);
  const auto result = bus.createBlock(name, 32768);
  EXPECT_NE(result.block, 0);
  EXPECT_FALSE(result.alreadyExists);
  EXPECT_EQ(std::filesystem::file_size(path), 32768u);
}

TEST_F(UnixSimulatorBusBlock, OfAnotherProcessNumberAlreadyExists) {
  const std::string other = hexadecimal(getppid());
  const std::string otherPath = "/dev/shm/VorlentTest." + other + ".1";
  leaveBehind(otherPath);
  const auto result = bus.createBlock("VorlentTest:" + other + ":1", 32768);
  const auto size = std::filesystem::file_size(otherPath);
  std::filesystem::remove(otherPath);
  EXPECT_EQ(result.block, 0);
  EXPECT_TRUE(result.alreadyExists);
  EXPECT_EQ(size, 3u);
}

TEST_F(UnixSimulatorBusBlock, DroppedGivesItsNameBack) {
  const auto block = bus.createBlock(name, 32768).block;
  bus.dropBlock(block);
  EXPECT_FALSE(exists());
  EXPECT_EQ(bus.mapBlock(block), nullptr);
  EXPECT_NE(bus.createBlock(name, 32768).block, 0);
}

TEST_F(UnixSimulatorBusBlock, StaysMappedWhenItIsDropped) {
  const auto block = bus.createBlock(name, 32768).block;
  std::byte* view = bus.mapBlock(block);
  bus.dropBlock(block);
  view[0] = std::byte{1};
  EXPECT_EQ(view[0], std::byte{1});
}

TEST_F(UnixSimulatorBusBlock, GoesWithTheBus) {
  {
    UnixSimulatorBus another;
    another.createBlock(name, 32768);
    ASSERT_TRUE(exists());
  }
  EXPECT_FALSE(exists());
}

TEST_F(UnixSimulatorBusBlock, IsNotMadeWithASlashOrANulInItsName) {
  for (const std::string& wrong : {"VorlentTest/" + id, "../VorlentTest." + id, name + '\0'}) {
    const auto result = bus.createBlock(wrong, 32768);
    EXPECT_EQ(result.block, 0);
    EXPECT_FALSE(result.alreadyExists);
  }
  EXPECT_FALSE(exists());
}

TEST_F(UnixSimulatorBusBlock, LargerThanTheMachineCanGiveLeavesNoName) {
  EXPECT_EQ(bus.createBlock(name, std::size_t{1} << 60).block, 0);
  EXPECT_FALSE(exists());
}

TEST_F(UnixSimulatorBusBlock, TheProcessNumberIsOurs) {
  EXPECT_EQ(bus.processId(), static_cast<std::uint32_t>(getpid()));
}

TEST_F(UnixSimulatorBusBlock, LeftOverOfAnotherUserIsToldAsWhatItIs) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can be another user as well";
  leaveBehind(path);
  const OrdinaryUser user;
  EXPECT_TRUE(bus.createBlock(name, 32768).alreadyExists);
  EXPECT_EQ(bus.obstacle(), "The shared memory /VorlentTest." + id +
                                ".1 is left of another user's program: start again");
}

}  // namespace
}  // namespace vorlent
