#include "platform/win32/sound/DirectSoundServer.h"

namespace vorlent {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

using HeardServer = DirectSoundServer;

TEST_F(HeardServer, TheRollIsLouderTheFasterItIsAndSilentAtAStand) {
  const Moment landed = onGround(true);
  const double fast_dB = level_dB(0, landed + 1500ms, landed + 4500ms);
  const Moment slow = groundSpeed(15);  // 72 in place of 95: 2.4 dB less
  EXPECT_NEAR(fast_dB - level_dB(0, slow + 1s, slow + 4s), 2.4, 1.0);
  const Moment standing = groundSpeed(0);
  EXPECT_LT(level_dB(0, standing + 1s, standing + 2s), -80);
}

TEST_F(HeardServer, AStarterIsHeardFromItsEnginesSideUntilTheEngineBurns) {
  flyUntil(steady_clock::now() + 500ms);
  const Moment start = put<std::uint8_t>(0x0892, 1);
  const double left_dB = level_dB(0, start + 1s, start + 3s);
  const double right_dB = level_dB(1, start + 1s, start + 3s);
  EXPECT_GT(left_dB, -35);
  EXPECT_NEAR(left_dB - right_dB, 22.2, 1.5) << "engine 1 is panned to 20";
  put<std::uint8_t>(0x0892, 0);
  const Moment burning = put<std::uint8_t>(0x0894, 1);
  EXPECT_LT(level_dB(0, burning + 1s, burning + 2s), -80);
}

}  // namespace
}  // namespace vorlent
