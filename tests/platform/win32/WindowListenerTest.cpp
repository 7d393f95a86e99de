#include "platform/win32/WindowListener.h"

#include <windows.h>

#include <chrono>
#include <csignal>
#include <future>

#include "base/RuntimeError.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "platform/win32/WindowsSimulatorBus.h"

namespace vorlent {
namespace {

constexpr std::size_t Size = 32768;
constexpr int Long_ms = 10000;
const std::string Name = "FSASMLIB:IPC:1A2B:1";
volatile std::sig_atomic_t endsAsked = 0;

/// A client on a thread of its own, while this thread serves.
class WindowListenerTest : public testing::Test {
 protected:
  ~WindowListenerTest() override { bus.deleteAtom(atom); }

  SendResult sent(const std::string& messageText, AtomId what) {
    auto result = std::async(std::launch::async, [&] {
      return bus.sendMessage(bus.findWindow("UIPCMAIN"), bus.registerMessage(messageText), what,
                             Long_ms);
    });
    while (result.wait_for(std::chrono::seconds(0)) != std::future_status::ready) listener.serve(1);
    return result.get();
  }

  WindowsSimulatorBus bus;
  AtomId atom = bus.addAtom(Name);
  int served = 0;
  WindowListener listener{{"UIPCMAIN", "FS98MAIN"}, [this](std::span<std::byte> block) {
                            ++served;
                            block[block.size() - 1] = std::byte{7};
                            return static_cast<std::int32_t>(block.size());
                          }};
};

TEST_F(WindowListenerTest, ServesTheBlockThatTheAtomNamesAndForgetsIt) {
  const BlockResult made = bus.createBlock(Name, Size);
  std::byte* view = bus.mapBlock(made.block);
  const SendResult result = sent("FSASMLIB:IPC", atom);
  EXPECT_TRUE(result.answered);
  EXPECT_EQ(result.reply, 32768);
  EXPECT_EQ(view[Size - 1], std::byte{7});
  bus.unmapBlock(view);
  bus.dropBlock(made.block);
  EXPECT_EQ(OpenFileMappingA(FILE_MAP_READ, FALSE, Name.c_str()), nullptr);
}

TEST_F(WindowListenerTest, AnAtomWithoutABlockIsAnsweredWithZero) {
  EXPECT_EQ(sent("FSASMLIB:IPC", atom).reply, 0);
  EXPECT_EQ(served, 0);
}

TEST_F(WindowListenerTest, ABlockThatIsTooSmallIsAnsweredWithZero) {
  const BlockResult made = bus.createBlock(Name, 4096);
  EXPECT_EQ(sent("FSASMLIB:IPC", atom).reply, 0);
  EXPECT_EQ(served, 0);
  bus.dropBlock(made.block);
}

TEST_F(WindowListenerTest, ABlockWhoseMemoryIsReservedOnlyIsAnsweredWithZero) {
  HANDLE block = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE | SEC_RESERVE, 0,
                                    Size, Name.c_str());
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(sent("FSASMLIB:IPC", atom).reply, 0);
  EXPECT_EQ(served, 0);
  CloseHandle(block);
}

TEST_F(WindowListenerTest, AnUnknownAtomIsAnsweredWithZero) {
  const AtomId gone = bus.addAtom("FSASMLIB:IPC:1A2B:2");
  bus.deleteAtom(gone);
  EXPECT_EQ(sent("FSASMLIB:IPC", gone).reply, 0);
  EXPECT_EQ(served, 0);
}

TEST_F(WindowListenerTest, ClosingItsWindowsAsksTheProgramOnceToEndAndTheyServeOn) {
  const auto before = std::signal(SIGTERM, [](int) { endsAsked = endsAsked + 1; });
  for (const char* windowClass : {"UIPCMAIN", "FS98MAIN"}) {
    HWND window = FindWindowExA(nullptr, nullptr, windowClass, nullptr);
    PostMessageA(window, WM_CLOSE, 0, 0);
    listener.serve(1);
    EXPECT_NE(IsWindow(window), 0);
  }
  std::signal(SIGTERM, before);
  EXPECT_EQ(endsAsked, 1);
}

TEST_F(WindowListenerTest, AnotherMessageIsNotARequest) {
  const BlockResult made = bus.createBlock(Name, Size);
  EXPECT_EQ(sent("another", atom).reply, 0);
  EXPECT_EQ(served, 0);
  bus.dropBlock(made.block);
}

TEST_F(WindowListenerTest, ASecondSimulatorIsRefusedAndTheFirstServesOn) {
  EXPECT_THAT(
      [] {
        WindowListener({"X-System", "FS98MAIN"}, {});
      },
      testing::ThrowsMessage<RuntimeError>(
          "Cannot open a window FS98MAIN: another simulator is running"));
  EXPECT_EQ(bus.findWindow("X-System"), 0);
  EXPECT_NE(bus.findWindow("FS98MAIN"), 0);
}

TEST_F(WindowListenerTest, ServesForTheTimeGivenWhenNothingComes) {
  const auto start = std::chrono::steady_clock::now();
  listener.serve(30);
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
}

TEST(WindowListenerLife, TheWindowsGoWithTheListenerAndCanBeOpenedAgain) {
  WindowsSimulatorBus bus;
  for (int round = 0; round < 2; ++round) {
    const WindowListener listener({"UIPCMAIN"}, {});
    EXPECT_NE(bus.findWindow("UIPCMAIN"), 0);
  }
  EXPECT_EQ(bus.findWindow("UIPCMAIN"), 0);
}

}  // namespace
}  // namespace vorlent
