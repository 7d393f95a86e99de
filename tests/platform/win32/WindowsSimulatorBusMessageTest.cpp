#include <windows.h>

#include <chrono>
#include <future>
#include <string>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "platform/win32/StandInWindow.h"
#include "platform/win32/WindowsSimulatorBus.h"

namespace vorlent {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr int Long_ms = 10000;
constexpr int Short_ms = 100;
// The system counts in ticks of its clock, the slowest of which are 15.6 ms apart.
constexpr milliseconds ClockTick{16};

class WindowsSimulatorBusMessage : public testing::Test {
 protected:
  ~WindowsSimulatorBusMessage() override { bus.deleteAtom(atom); }

  static WindowHandle handleOf(const StandInWindow& window) {
    return reinterpret_cast<WindowHandle>(window.window());
  }

  WindowsSimulatorBus bus;
  MessageId message = bus.registerMessage("FSASMLIB:IPC");
  AtomId atom = bus.addAtom("FSASMLIB:IPC:1A2B:1");
};

TEST_F(WindowsSimulatorBusMessage, AHiddenTopLevelWindowIsFoundByItsClass) {
  const StandInWindow simulator("UIPCMAIN"), other("FS98MAIN");
  EXPECT_EQ(bus.findWindow("UIPCMAIN"), handleOf(simulator));
  EXPECT_EQ(bus.findWindow("FS98MAIN"), handleOf(other));
}

TEST_F(WindowsSimulatorBusMessage, AWindowThatNobodyOpenedOrThatIsGoneIsNotFound) {
  StandInWindow simulator("UIPCMAIN");
  EXPECT_EQ(bus.findWindow("FS98MAIN"), 0);
  simulator.close();
  EXPECT_EQ(bus.findWindow("UIPCMAIN"), 0);
}

TEST_F(WindowsSimulatorBusMessage, TheAtomIsTheFirstParameterAndTheSecondIsZero) {
  UINT arrived = 0;
  std::string name(30, '\0');
  LPARAM second = -1;
  const StandInWindow simulator("UIPCMAIN", [&](UINT what, WPARAM first, LPARAM parameter) {
    arrived = what;
    name.resize(GlobalGetAtomNameA(static_cast<ATOM>(first), name.data(), 30));
    second = parameter;
    return LRESULT{1};
  });
  const SendResult result = bus.sendMessage(handleOf(simulator), message, atom, Long_ms);
  EXPECT_TRUE(result.answered);
  EXPECT_EQ(result.reply, 1);
  EXPECT_EQ(arrived, RegisterWindowMessageA("FSASMLIB:IPC"));
  EXPECT_EQ(name, "FSASMLIB:IPC:1A2B:1");
  EXPECT_EQ(second, 0);
}

TEST_F(WindowsSimulatorBusMessage, TheReplyIsSignedAndMayBeZero) {
  std::vector<LRESULT> replies{-2, 0};
  const StandInWindow simulator("UIPCMAIN", [&](UINT, WPARAM, LPARAM) {
    const LRESULT reply = replies.back();
    replies.pop_back();
    return reply;
  });
  for (const std::int32_t expected : {0, -2}) {
    const SendResult result = bus.sendMessage(handleOf(simulator), message, atom, Long_ms);
    EXPECT_TRUE(result.answered);
    EXPECT_EQ(result.reply, expected);
  }
}

TEST_F(WindowsSimulatorBusMessage, NoAnswerIsATimeOutAfterTheTimeGivenAndNoError) {
  std::promise<void> done;
  const StandInWindow simulator("UIPCMAIN", [&](UINT, WPARAM, LPARAM) {
    done.get_future().wait();
    return LRESULT{1};
  });
  SetLastError(ERROR_ACCESS_DENIED);  // of some earlier call
  const auto start = steady_clock::now();
  const SendResult result = bus.sendMessage(handleOf(simulator), message, atom, Short_ms);
  EXPECT_GE(steady_clock::now() - start + ClockTick, milliseconds(Short_ms));
  EXPECT_FALSE(result.answered);
  EXPECT_EQ(result.lastError, 0u);
  done.set_value();
}

TEST_F(WindowsSimulatorBusMessage, AWindowThatIsGoneIsAnErrorAtOnce) {
  StandInWindow simulator("UIPCMAIN");
  simulator.close();
  const auto start = steady_clock::now();
  const SendResult result = bus.sendMessage(handleOf(simulator), message, atom, Long_ms);
  EXPECT_LT(steady_clock::now() - start, milliseconds(Long_ms));
  EXPECT_FALSE(result.answered);
  EXPECT_EQ(result.lastError, 1400u);  // invalid window handle
}

bool dispatchedMeanwhile = false;

LRESULT CALLBACK noteMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_USER) dispatchedMeanwhile = true;
  return DefWindowProcA(window, message, first, second);
}

TEST_F(WindowsSimulatorBusMessage, NoMessageToThisThreadIsDispatchedMeanwhile) {
  WNDCLASSA description{};
  description.lpfnWndProc = noteMessage;
  description.hInstance = GetModuleHandleA(nullptr);
  description.lpszClassName = "VorlentOwnWindow";
  RegisterClassA(&description);
  const HWND own = CreateWindowA("VorlentOwnWindow", "", WS_OVERLAPPEDWINDOW, 0, 0, 0, 0, nullptr,
                                 nullptr, description.hInstance, nullptr);
  LRESULT delivered = -1;
  const StandInWindow simulator("UIPCMAIN", [&](UINT, WPARAM, LPARAM) {
    DWORD_PTR reply = 0;
    delivered = SendMessageTimeoutA(own, WM_USER, 0, 0, SMTO_NORMAL, Short_ms, &reply);
    return LRESULT{1};
  });
  dispatchedMeanwhile = false;
  const SendResult result = bus.sendMessage(handleOf(simulator), message, atom, Long_ms);
  EXPECT_TRUE(result.answered);
  EXPECT_EQ(delivered, 0);
  EXPECT_FALSE(dispatchedMeanwhile);
  DestroyWindow(own);
  UnregisterClassA("VorlentOwnWindow", description.hInstance);
}

TEST_F(WindowsSimulatorBusMessage, ADeletedAtomIsUnknownToTheSystem) {
  const AtomId another = bus.addAtom("FSASMLIB:IPC:1A2B:2");
  EXPECT_EQ(GlobalFindAtomA("FSASMLIB:IPC:1A2B:2"), another);
  bus.deleteAtom(another);
  EXPECT_EQ(GlobalFindAtomA("FSASMLIB:IPC:1A2B:2"), 0);
}

TEST_F(WindowsSimulatorBusMessage, AnAtomLongerThanTheSystemTakesIsZero) {
  EXPECT_EQ(bus.addAtom(std::string(256, 'a')), 0u);
}

/// Lets time pass for messages on their way to another thread.
bool within10s(const std::function<bool()>& condition) {
  const auto end = steady_clock::now() + std::chrono::seconds(10);
  while (!condition()) {
    if (steady_clock::now() > end) return false;
    std::this_thread::yield();
  }
  return true;
}

TEST_F(WindowsSimulatorBusMessage, TheSimulatorsWindowIsShownMaximisedOrAsItWas) {
  const StandInWindow simulator("UIPCMAIN");
  const HWND window = simulator.window();
  ASSERT_FALSE(IsWindowVisible(window));
  bus.showWindow(handleOf(simulator), true);
  EXPECT_TRUE(within10s([&] { return IsWindowVisible(window) && IsZoomed(window); }));
  bus.showWindow(handleOf(simulator), false);
  EXPECT_TRUE(within10s([&] { return IsWindowVisible(window) && !IsZoomed(window); }));
}

TEST_F(WindowsSimulatorBusMessage, TheSimulatorsWindowComesToTheFront) {
  const StandInWindow behind("UIPCMAIN"), front("FS98MAIN");
  // Without activation, which would still be on its way when the bus steps in.
  for (const StandInWindow* each : {&behind, &front}) ShowWindow(each->window(), SW_SHOWNA);
  bus.bringToFront(handleOf(front));
  EXPECT_TRUE(within10s([&] { return GetForegroundWindow() == front.window(); }));
  bus.bringToFront(handleOf(behind));
  EXPECT_TRUE(within10s([&] { return GetForegroundWindow() == behind.window(); }));
}

}  // namespace
}  // namespace vorlent
