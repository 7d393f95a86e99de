#include <gmock/gmock.h>

#include <algorithm>
#include <vector>

#include "support/eventually.h"
#include "windows/support/ForeignClient.h"
#include "windows/support/WindowsCockpit.h"
#include "windows/support/windowsOf.h"

namespace vorlent {
namespace {

using testing::HasSubstr;

/// The server with its window, up, and a display that asks for a record each 50 ms.
class WindowProgram : public testing::Test {
 protected:
  void SetUp() override {
    cockpit.startSimulator();
    cockpit.startServer("vorlent");
    ASSERT_TRUE(eventually([&] { return mainWindow() != nullptr; })) << cockpit.server->output();
    display.send(cockpit.basePort, "Connection on a b 50 localhost");
    ASSERT_TRUE(display.receive("Data 2 1 "));
  }

  HWND window(const std::string& begin) const { return windowOf(cockpit.server->id(), begin); }
  /// Its title tells the simulator once the link is up.
  HWND mainWindow() const { return window("Vorlent 0.1 on: FSX"); }
  void key(WPARAM code) const {
    PostMessageW(mainWindow(), WM_KEYDOWN, code, 1);
    PostMessageW(mainWindow(), WM_KEYUP, code, static_cast<LPARAM>(0xC0000001));
  }
  void click(int x, int y) const {
    const LPARAM place = MAKELPARAM(x, y);
    PostMessageW(mainWindow(), WM_LBUTTONDOWN, MK_LBUTTON, place);
    PostMessageW(mainWindow(), WM_LBUTTONUP, 0, place);
  }
  bool inAMoveOfTheWindow() const {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    const DWORD thread = GetWindowThreadProcessId(mainWindow(), nullptr);
    return GetGUIThreadInfo(thread, &state) != 0 && (state.flags & GUI_INMOVESIZE) != 0;
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

TEST_F(WindowProgram, RecordsGoOnWithAMenuABoxAFormOrWhileItsWindowIsMoved) {
  expectPollsAndRecords("at rest");

  PostMessageW(mainWindow(), WM_SYSCOMMAND, SC_MOVE, 0);
  ASSERT_TRUE(eventually([&] { return inAMoveOfTheWindow(); }));
  expectPollsAndRecords("while the window is moved");
  EXPECT_TRUE(inAMoveOfTheWindow());
  PostMessageW(mainWindow(), WM_KEYDOWN, VK_ESCAPE, 1);
  ASSERT_TRUE(eventually([&] { return !inAMoveOfTheWindow(); }));
}

}  // namespace
}  // namespace vorlent
