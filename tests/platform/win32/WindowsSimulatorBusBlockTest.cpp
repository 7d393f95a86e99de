#include <windows.h>

#include <algorithm>
#include <span>

#include "gtest/gtest.h"
#include "platform/win32/WindowsSimulatorBus.h"

namespace vorlent {
namespace {

constexpr std::size_t Size = 32768;
const std::string Name = "FSASMLIB:IPC:1A2B:1";

bool isTaken(const std::string& name) {
  const HANDLE found = OpenFileMappingA(FILE_MAP_READ, FALSE, name.c_str());
  if (found != nullptr) CloseHandle(found);
  return found != nullptr;
}

TEST(WindowsSimulatorBusBlock, ANewBlockIsZeroFromEndToEndAndCanBeWritten) {
  WindowsSimulatorBus bus;
  const BlockResult made = bus.createBlock(Name, Size);
  ASSERT_NE(made.block, 0);
  EXPECT_FALSE(made.alreadyExists);
  const std::span<std::byte> block(bus.mapBlock(made.block), Size);
  ASSERT_NE(block.data(), nullptr);
  EXPECT_TRUE(std::ranges::all_of(block, [](std::byte b) { return b == std::byte{0}; }));
  std::ranges::fill(block, std::byte{0x5A});
  EXPECT_EQ(block.back(), std::byte{0x5A});
  bus.unmapBlock(block.data());
  bus.dropBlock(made.block);
}

TEST(WindowsSimulatorBusBlock, AnotherWhoOpensTheNameSeesWhatIsWrittenAndAnswersInPlace) {
  WindowsSimulatorBus bus;
  const BlockResult made = bus.createBlock(Name, Size);
  std::byte* view = bus.mapBlock(made.block);
  ASSERT_NE(view, nullptr);
  const HANDLE opened = OpenFileMappingA(FILE_MAP_WRITE, FALSE, Name.c_str());
  auto* other = static_cast<std::byte*>(MapViewOfFile(opened, FILE_MAP_WRITE, 0, 0, Size));
  ASSERT_NE(other, nullptr);
  view[Size - 1] = std::byte{7};
  EXPECT_EQ(other[Size - 1], std::byte{7});
  other[0] = std::byte{9};
  EXPECT_EQ(view[0], std::byte{9});
  UnmapViewOfFile(other);
  CloseHandle(opened);
  bus.unmapBlock(view);
  bus.dropBlock(made.block);
}

TEST(WindowsSimulatorBusBlock, ANameThatIsTakenIsToldAndItsHandleCanBeDropped) {
  WindowsSimulatorBus bus;
  const HANDLE others =
      CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, Size, Name.c_str());
  const BlockResult made = bus.createBlock(Name, Size);
  EXPECT_TRUE(made.alreadyExists);
  EXPECT_NE(made.block, 0);
  bus.dropBlock(made.block);
  EXPECT_TRUE(isTaken(Name));
  CloseHandle(others);
  EXPECT_FALSE(isTaken(Name));
}

TEST(WindowsSimulatorBusBlock, ANameIsFreeOnceTheBlockIsUnmappedAndDropped) {
  WindowsSimulatorBus bus;
  for (int round = 0; round < 2; ++round) {
    const BlockResult made = bus.createBlock(Name, Size);
    EXPECT_FALSE(made.alreadyExists);
    bus.unmapBlock(bus.mapBlock(made.block));
    bus.dropBlock(made.block);
    EXPECT_FALSE(isTaken(Name));
  }
}

TEST(WindowsSimulatorBusBlock, ANameOfAnotherKindOfObjectGivesNoBlock) {
  WindowsSimulatorBus bus;
  const HANDLE event = CreateEventA(nullptr, TRUE, FALSE, Name.c_str());
  EXPECT_EQ(bus.createBlock(Name, Size).block, 0);
  CloseHandle(event);
}

TEST(WindowsSimulatorBusBlock, ABlockThatIsNoneCannotBeMapped) {
  WindowsSimulatorBus bus;
  EXPECT_EQ(bus.mapBlock(0), nullptr);
}

}  // namespace
}  // namespace vorlent
