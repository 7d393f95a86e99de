#include "platform/win32/sound/DirectSoundServer.h"

namespace vorlent {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

using HeardTouchdown = DirectSoundServer;

TEST_F(HeardTouchdown, IsHeardAtItsTime) {
  constexpr double Audible = 0.02;
  const Moment flying = steady_clock::now() + 500ms;
  EXPECT_FALSE(flyUntil(flying + 1s).firstAbove(Audible, flying)) << "silent in the air";

  const Moment touchdown = onGround(true);
  const auto heard = flyUntil(touchdown + 500ms).firstAbove(Audible, touchdown - 200ms);
  ASSERT_TRUE(heard);
  const double late_ms = std::chrono::duration<double, std::milli>(*heard - touchdown).count();
  RecordProperty("late_ms", std::to_string(late_ms));
  EXPECT_GT(late_ms, -100);
  EXPECT_LT(late_ms, 100);
}

}  // namespace
}  // namespace vorlent
