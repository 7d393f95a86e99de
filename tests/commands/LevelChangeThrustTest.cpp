#include <gtest/gtest.h>

#include "autoflight/clsAfds.h"
#include "commands/CommandTest.h"

namespace vorlent {
namespace {

class LevelChangeThrust : public CommandTest {};

TEST_F(LevelChangeThrust, WithoutAClimbThrustItIsTold) {
  press(167);
  EXPECT_EQ(status(), "Level change climbs with N1 0, that is, idle: the aircraft has no ClimbN1");
}

TEST_F(LevelChangeThrust, WithAClimbThrustItIsNotTold) {
  t.server.autoflight.afds->ClimbN1(85);
  t.form.SetStatusText(1, "before");
  press(167);
  EXPECT_EQ(status(), "before");
}

}  // namespace
}  // namespace vorlent
