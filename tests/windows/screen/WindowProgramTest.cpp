#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "support/eventually.h"
#include "windows/support/ForeignClient.h"
#include "windows/support/WindowsCockpit.h"
#include "windows/support/windowsOf.h"

namespace vorlent {
namespace {

/// The server with its window, up, and a display that asks for a record each 50 ms.
class WindowProgram : public testing::Test {
 protected:
  void SetUp() override {
    cockpit.startSimulator();
    cockpit.startServer("vorlent");
    ASSERT_TRUE(eventually([&] { return mainWindow() != nullptr; }, 60s))
        << cockpit.server->output();
    // Its ports come after its title.
    ASSERT_TRUE(eventually([&] {
      display.send(cockpit.basePort, "Connection on a b 50 display");
      return display.receive("Data 2 1 ", 500ms).has_value();
    }));
  }

  /// Its title tells the simulator once the link is up.
  HWND mainWindow() const { return windowOf(cockpit.server->id(), "Vorlent 0.1 on: FSX"); }
  /// As from the keyboard, to the main window.
  void press(BYTE key) const {
    SetForegroundWindow(mainWindow());
    const auto scan = static_cast<BYTE>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    keybd_event(key, scan, 0, 0);
    keybd_event(key, scan, KEYEVENTF_KEYUP, 0);
  }
  void altAnd(BYTE key) const {
    SetForegroundWindow(mainWindow());
    keybd_event(VK_MENU, 0, 0, 0);
    press(key);
    keybd_event(VK_MENU, 0, KEYEVENTF_KEYUP, 0);
  }
  /// Whether one more window is seen after Alt and that key. A key that is pressed before the
  /// window is in front is lost.
  bool opensBy(BYTE key) const {
    const int before = windows();
    for (int attempt = 0; attempt < 10; ++attempt) {
      altAnd(key);
      if (eventually([&] { return windows() > before; }, 3s)) return true;
    }
    return false;
  }
  /// How many of its top-level windows are seen.
  int windows() const {
    struct Count {
      DWORD process;
      int seen;
    } count{cockpit.server->id(), 0};
    EnumWindows(
        [](HWND window, LPARAM parameter) -> BOOL {
          auto& found = *reinterpret_cast<Count*>(parameter);
          DWORD owner = 0;
          GetWindowThreadProcessId(window, &owner);
          if (owner == found.process && IsWindowVisible(window) != 0) ++found.seen;
          return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count.seen;
  }
  /// Whether the system runs a loop of its own there, as it does for a menu of its and for a window
  /// that is moved.
  bool inTheSystemsLoop() const {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    const DWORD thread = GetWindowThreadProcessId(mainWindow(), nullptr);
    return GetGUIThreadInfo(thread, &state) != 0 &&
           (state.flags & (GUI_INMENUMODE | GUI_INMOVESIZE)) != 0;
  }

  /// For three seconds: that records keep coming, and that what is polled keeps changing.
  void expectPollsAndRecords(const char* during) {
    using Clock = std::chrono::steady_clock;
    const auto begin = Clock::now();
    auto last = begin;
    std::chrono::duration<double, std::milli> longest{};
    std::vector<std::string> records;
    while (Clock::now() - begin < 3s) {
      const auto record = display.receive("Data 2 1 ");
      ASSERT_TRUE(record) << during;
      longest = std::max<decltype(longest)>(longest, Clock::now() - last);
      last = Clock::now();
      records.push_back(*record);
    }
    const auto count = records.size();
    const auto polls = std::unique(records.begin(), records.end()) - records.begin();
    std::printf("%s: %zu records of 3 s, the longest wait %.0f ms, %td of them new\n", during,
                count, longest.count(), polls);
    EXPECT_GT(count, 45U) << during;
    EXPECT_GT(polls, 35) << during;
    EXPECT_LT(longest.count(), 300) << during;
  }

  WindowsCockpit cockpit;
  DisplayLink display;
};

TEST_F(WindowProgram, RecordsGoOnWhileAMenuOfTheSystemIsOpen) {
  expectPollsAndRecords("at rest");
  PostMessageW(mainWindow(), WM_SYSCOMMAND, SC_KEYMENU, ' ');
  ASSERT_TRUE(eventually([&] { return inTheSystemsLoop(); }));
  expectPollsAndRecords("while a menu of the system is open");
  EXPECT_TRUE(inTheSystemsLoop());
}

TEST_F(WindowProgram, RecordsGoOnWhileAMenuOfItsOwnIsOpen) {
  const auto before = windows();
  ASSERT_TRUE(opensBy('F'));
  expectPollsAndRecords("while a menu is open");
  EXPECT_GT(windows(), before);
}

TEST_F(WindowProgram, RecordsGoOnWhileAFormStandsBeforeIt) {
  const auto before = windows();
  ASSERT_TRUE(opensBy('M'));
  EXPECT_FALSE(IsWindowEnabled(mainWindow()));
  expectPollsAndRecords("while a form stands before it");
  EXPECT_GT(windows(), before);
}

TEST_F(WindowProgram, RecordsGoOnWhileItIsMoved) {
  PostMessageW(mainWindow(), WM_SYSCOMMAND, SC_MOVE, 0);
  ASSERT_TRUE(eventually([&] { return inTheSystemsLoop(); }));
  expectPollsAndRecords("while it is moved");
  EXPECT_TRUE(inTheSystemsLoop());
}

}  // namespace
}  // namespace vorlent
