#include "platform/qt/Signals.h"

#include <csignal>
#include <vector>

#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtFixture.h"

namespace vorlent {
namespace {

class SignalsTest : public QtFixture {
 protected:
  std::vector<int> received;
};

TEST_F(SignalsTest, InterruptAndTerminationComeThroughTheEventLoop) {
  const Signals caught([this](int signal) { received.push_back(signal); });
  raise(SIGTERM);
  raise(SIGINT);
  EXPECT_TRUE(received.empty());
  ASSERT_TRUE(comes([&] { return received.size() == 2; }));
  EXPECT_EQ(received, (std::vector<int>{SIGTERM, SIGINT}));
}

TEST_F(SignalsTest, SoDoesTheEndOfTheTerminal) {
  const Signals caught([this](int signal) { received.push_back(signal); });
  raise(SIGHUP);
  EXPECT_TRUE(comes([&] { return received == std::vector<int>{SIGHUP}; }));
}

TEST_F(SignalsTest, TheEndOfTheTerminalStaysIgnoredWhereItIs) {
  const auto original = std::signal(SIGHUP, SIG_IGN);
  {
    const Signals caught([this](int signal) { received.push_back(signal); });
    raise(SIGHUP);
    raise(SIGTERM);
    EXPECT_TRUE(comes([&] { return !received.empty(); }));
  }
  EXPECT_EQ(std::signal(SIGHUP, original), SIG_IGN);
  EXPECT_EQ(received, std::vector<int>{SIGTERM});
}

TEST_F(SignalsTest, TheyComeInANestedPumpToo) {
  const Signals caught([this](int signal) { received.push_back(signal); });
  QtEventLoop loop;
  bool cameInside = false;
  const auto timer = loop.createTimer([&] {
    raise(SIGINT);
    cameInside = comes([&] {
      loop.pump();
      return !received.empty();
    });
    loop.end(0);
  });
  timer->start(1);
  loop.exec();
  EXPECT_TRUE(cameInside);
}

TEST_F(SignalsTest, AfterwardsTheyDoWhatTheyDidBefore) {
  const auto original = std::signal(SIGTERM, SIG_IGN);
  {
    const Signals caught([](int) {});
  }
  EXPECT_EQ(std::signal(SIGTERM, original), SIG_IGN);
}

TEST_F(SignalsTest, TheyCanBeCaughtAgain) {
  {
    const Signals first([](int) {});
  }
  const Signals second([this](int signal) { received.push_back(signal); });
  raise(SIGTERM);
  EXPECT_TRUE(comes([&] { return received == std::vector<int>{SIGTERM}; }));
}

}  // namespace
}  // namespace vorlent
