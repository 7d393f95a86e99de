#include "endtoend/OperatorAtTheScreen.h"

namespace vorlent {

void OperatorAtTheScreen::startWindows() {
  server = cockpit.program("vorlent", {}, desktop.environment());
  EXPECT_TRUE(desktop.comesToFront(Main)) << server->output() << desktop.names(".*");
}

void OperatorAtTheScreen::turnByThePanel() {
  desktop.keys(Main, {"alt+p"});
  ASSERT_TRUE(desktop.shows(Panel, "The autopilot is ready")) << desktop.names(Panel);
  desktop.click(Panel, "CMD A");
  ASSERT_TRUE(desktop.shows(Main, "CMD")) << desktop.names(Main);
  desktop.click(Panel, "HDG SEL");
  ASSERT_TRUE(desktop.shows(Main, "HDG_SEL")) << desktop.names(Main);
  desktop.click(Panel, "HEADING");
  desktop.retype(Panel, "90");
  desktop.keys(Panel, {"Return"});
  EXPECT_TRUE(desktop.holds(Panel, "HEADING", "90")) << desktop.names(Panel);
}

void OperatorAtTheScreen::makeAnAircraft() {
  desktop.keys(Main, {"alt+m"});
  desktop.keys(NewAircraft, {"alt+n"});
  desktop.type(NewAircraft, "737-900");
  desktop.keys(NewAircraft, {"Return"});
  EXPECT_TRUE(desktop.comesToFront(Main));
  EXPECT_TRUE(desktop.shows(Main, "Aircraft 737-900 made from template 737-700"))
      << desktop.names(Main);
}

}  // namespace vorlent
