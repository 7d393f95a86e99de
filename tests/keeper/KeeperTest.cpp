#include "keeper/Keeper.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "support/FakeSimulatorBus.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// What the test has the started server do.
struct ServerScript {
  std::string says;
  std::optional<int> status;
  bool asked = false;  ///< to end
};

class ScriptedServer : public StartedProgram {
 public:
  explicit ScriptedServer(ServerScript& script) : script_(script) {}
  std::string output() override { return std::exchange(script_.says, ""); }
  std::optional<int> ended() override { return script_.status; }
  void end() override { script_.asked = true; }

 private:
  ServerScript& script_;
};

class KeeperTest : public testing::Test, public ProgramStarter {
 protected:
  std::unique_ptr<StartedProgram> start(const std::string& path) override {
    if (path != "vorlentd") return nullptr;
    startedAt_s.push_back(static_cast<double>(now_ms) / 1000);
    script = {};
    return std::make_unique<ScriptedServer>(script);
  }
  std::string fileName(const std::string& program) const override { return program; }

  /// Steps of a tenth of a second.
  void pass(double seconds) {
    for (const auto until = now_ms + static_cast<std::int64_t>(seconds * 1000);
         now_ms < until && !over; now_ms += 100)
      over = keeper.step(now_ms);
  }
  void simulatorComes() { bus.window = ++lastWindow; }
  void simulatorGoes() { bus.window = 0; }
  void serverEnds(int status) {
    script.status = status;
    pass(0.1);
  }

  /// A simulator whose window is another one each time it comes.
  struct Bus : FakeSimulatorBus {
    WindowHandle findWindow(const std::string& windowClass) override {
      return windowClass == "UIPCMAIN" ? window : 0;
    }
    WindowHandle window = 0;
  };

  Bus bus;
  WindowHandle lastWindow = 0;
  ServerScript script;
  std::vector<double> startedAt_s;
  std::vector<std::string> notices;
  std::vector<std::string> failures;
  std::string output;
  std::int64_t now_ms = 0;
  std::optional<int> over;
  Keeper keeper{*this,
                "vorlentd",
                bus,
                {[this](const std::string& text) { output += text; },
                 [this](const std::string& notice) { notices.push_back(notice); },
                 [this](const std::string& how, const std::string& words) {
                   failures.push_back(how + ": " + words);
                 }}};
};

TEST_F(KeeperTest, WaitsForTheSimulatorAndSaysSoOnce) {
  pass(5);
  EXPECT_THAT(startedAt_s, IsEmpty());
  EXPECT_THAT(notices, ElementsAre("waiting for the simulator"));
  simulatorComes();
  pass(1);
  EXPECT_THAT(startedAt_s, ElementsAre(5));
}

TEST_F(KeeperTest, AnOrderlyEndIsTheEnd) {
  simulatorComes();
  pass(20);
  serverEnds(0);
  EXPECT_EQ(over, 0);
  EXPECT_THAT(startedAt_s, ElementsAre(0));
}

TEST_F(KeeperTest,
       AServerThatFailsBesideItsSimulatorIsGivenTwiceThePauseEachTimeUpToThirtySeconds) {
  simulatorComes();
  pass(1);
  std::vector<double> pauses_s;
  for (int failure = 0; failure < 7; ++failure) {
    const auto endedAt = static_cast<double>(now_ms) / 1000;
    serverEnds(1);
    pass(40);
    pauses_s.push_back(std::round(10 * (startedAt_s.back() - endedAt)) / 10);
    ASSERT_FALSE(over);
  }
  EXPECT_THAT(pauses_s, ElementsAre(1, 2, 4, 8, 16, 30, 30));
}

TEST_F(KeeperTest, ARunOfAMinuteMakesThePauseShortAgain) {
  simulatorComes();
  pass(1);
  serverEnds(1);
  pass(2);
  serverEnds(1);
  pass(62);
  const double endedAt_s = static_cast<double>(now_ms) / 1000;
  serverEnds(1);
  pass(2);
  EXPECT_DOUBLE_EQ(startedAt_s.back(), endedAt_s + 1);
}

TEST_F(KeeperTest, ASimulatorThatWentAndCameFindsTheServerAtOnce) {
  simulatorComes();
  pass(20);
  for (int time = 0; time < 20; ++time) {
    simulatorGoes();
    pass(0.5);
    serverEnds(1);
    pass(7);
    simulatorComes();
    const double backAt_s = static_cast<double>(now_ms) / 1000;
    pass(3);
    EXPECT_DOUBLE_EQ(startedAt_s.back(), backAt_s);
  }
  EXPECT_EQ(startedAt_s.size(), 21U);
}

TEST_F(KeeperTest, AnotherSimulatorInTheSameMomentLeavesThePauseAtASecond) {
  simulatorComes();
  pass(5);
  for (int time = 0; time < 20; ++time) {
    simulatorComes();
    const double endedAt_s = static_cast<double>(now_ms) / 1000;
    serverEnds(1);
    pass(3);
    EXPECT_DOUBLE_EQ(startedAt_s.back(), endedAt_s + 1);
  }
}

TEST_F(KeeperTest, AStartThatFoundNoSimulatorIsNoOrderlyEnd) {
  simulatorComes();
  pass(1);
  simulatorGoes();
  serverEnds(0);
  EXPECT_FALSE(over);
  EXPECT_THAT(failures, ElementsAre("found no simulator: "));
  simulatorComes();
  pass(2);
  EXPECT_EQ(startedAt_s.size(), 2U);
}

TEST_F(KeeperTest, AnOperatorWhoEndsTheServerAfterTheSimulatorIsObeyed) {
  simulatorComes();
  pass(20);
  simulatorGoes();
  serverEnds(0);
  EXPECT_EQ(over, 0);
}

TEST_F(KeeperTest, WhatTheServerSaysIsPassedOnAndItsLastLinesAreKept) {
  simulatorComes();
  pass(1);
  for (int line = 1; line <= 25; ++line) script.says += "line " + std::to_string(line) + "\r\n";
  pass(0.2);
  script.says = "Run-time error '6':";
  serverEnds(1);
  EXPECT_THAT(output, testing::EndsWith("line 25\r\nRun-time error '6':"));
  ASSERT_EQ(failures.size(), 1U);
  EXPECT_THAT(failures[0], testing::StartsWith("ended by itself with status 1: line 6\nline 7\n"));
  EXPECT_THAT(failures[0], testing::EndsWith("line 25\nRun-time error '6':\n"));
}

TEST_F(KeeperTest, TheWordsOfOneRunAreNotThoseOfTheNext) {
  simulatorComes();
  pass(1);
  script.says = "first\n";
  serverEnds(1);
  pass(2);
  serverEnds(1);
  EXPECT_THAT(failures, ElementsAre("ended by itself with status 1: first\n",
                                    "ended by itself with status 1: "));
}

TEST_F(KeeperTest, ACrashIsAnEndByItself) {
  simulatorComes();
  pass(1);
  serverEnds(139);
  pass(2);
  EXPECT_EQ(startedAt_s.size(), 2U);
  EXPECT_THAT(notices, ElementsAre("the server ended by itself with status 139; it is started "
                                   "again in 1 s, when the simulator is there"));
}

TEST_F(KeeperTest, AskedToEndItAsksTheServerAndWaitsForIt) {
  simulatorComes();
  pass(1);
  keeper.endInOrder();
  EXPECT_TRUE(script.asked);
  pass(3);
  EXPECT_FALSE(over);
  serverEnds(0);
  EXPECT_EQ(over, 0);
}

TEST_F(KeeperTest, AskedToEndWithoutAServerItEnds) {
  pass(1);
  keeper.endInOrder();
  pass(0.1);
  EXPECT_EQ(over, 0);
}

TEST_F(KeeperTest, AServerThatCannotBeStartedIsToldAndEndsIt) {
  simulatorComes();
  Keeper other(*this, "nothing", bus,
               {[](auto&) {}, [this](auto& n) { notices.push_back(n); }, {}});
  EXPECT_EQ(other.step(0), 1);
  EXPECT_THAT(notices, ElementsAre("cannot start nothing"));
}

}  // namespace
}  // namespace vorlent
