#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include "endtoend/Cockpit.h"
#include "endtoend/Desktop.h"
#include "sticks/CurvePicture.h"
#include "support/eventually.h"

namespace vorlent {
namespace {

using testing::HasSubstr;

const std::string Main = "^Vorlent", First = "^1 setup", Curve = "^Sensitivity",
                  Panel = "^Test MCP", NewAircraft = "^New aircraft";

/// A builder before the screen of the server, with nothing but mouse and keys.
class Builder : public testing::Test {
 protected:
  void start() {
    cockpit.addProgram("vorlent");
    cockpit.startSimulator({"--trace", cockpit.folder / "flight.csv"});
    startWindows();
  }
  void startWindows() {
    server = cockpit.program("vorlent", {}, desktop.environment());
    ASSERT_TRUE(desktop.comesToFront(Main)) << server->output();
  }
  /// By the menu.
  void exitAndStartAgain() {
    desktop.keys(Main, {"alt+f", "e"});
    ASSERT_EQ(server->waitForEnd(), 0) << server->output();
    startWindows();
  }

  Cockpit cockpit;
  Desktop desktop;
  std::unique_ptr<Process> server;
};

/// Of a line of a stick's file; the name is the first.
std::string field(const std::string& line, int number) {
  std::istringstream fields(line);
  std::string text;
  for (int i = 0; i < number; ++i) std::getline(fields, text, ',');
  return text;
}

/// Two boards, on whose sticks nothing is wired.
class Wiring : public Builder {
 protected:
  void startWithBoards() {
    cockpit.addProgram("vorlent-stick");
    const std::string folder = "Cockpits/737-700/stick/";
    for (const std::string file : {"stick0.cfg", "stick1.cfg"})
      cockpit.folder.write(folder + file, cockpit.folder.read(folder + "stick7.cfg"));
    yoke = board("a-yoke");
    second = board("b-second");
    start();
  }
  void switchTheSticksOn() {
    desktop.keys(Main, {"alt+b"});
    desktop.retype(Main, "2");
    desktop.keys(Main, {"alt+j"});
    ASSERT_TRUE(desktop.checked(Main, "Enable joysticks"));
    ASSERT_TRUE(desktop.shows(Main, "2 on"));
  }
  void openStick(const std::string& number) {
    desktop.keys(Main, {"alt+k", number, "alt+e"});
    ASSERT_TRUE(desktop.comesToFront("^" + number + " setup"));
  }
  /// Types a part of a name into the list of the selected row, which shows this now.
  void choose(const std::string& window, const std::string& shown, const std::string& part) {
    desktop.click(window, shown);
    desktop.retype(window, part);
    desktop.keys(window, {"Return"});
  }
  /// The place on the screen of a point of the graph, in percent.
  std::pair<int, int> graphPlace(float input, float output) {
    const Desktop::Place view = desktop.place(Curve, "Response curve");
    const double units =
        std::max(double{CurveScale::Width} / view.width, double{CurveScale::Height} / view.height);
    const Picture::Place at = placeOfPercent(input, output);
    return {
        view.x + static_cast<int>((view.width - CurveScale::Width / units) / 2 + at.x / units),
        view.y + static_cast<int>((view.height - CurveScale::Height / units) / 2 + at.y / units)};
  }
  std::string line(int stick, const std::string& name) const {
    std::istringstream file(
        cockpit.folder.read("Cockpits/737-700/stick/stick" + std::to_string(stick) + ".cfg"));
    for (std::string line; std::getline(file, line);)
      if (line.starts_with(name)) return line;
    return "";
  }

  std::unique_ptr<Process> yoke, second;

 private:
  std::unique_ptr<Process> board(const std::string& name) const {
    auto stick = cockpit.program("vorlent-stick", {"--name", name, "x=32768", "y=32768"});
    EXPECT_TRUE(stick->waitForLine("ready")) << stick->output();
    return stick;
  }
};

TEST_F(Wiring, AnAxisFoundByItsMovementIsBentWithTheMouseAndFoundAgain) {
  startWithBoards();
  switchTheSticksOn();
  openStick("1");
  desktop.keys(First, {"alt+p"});
  ASSERT_TRUE(desktop.checked(First, "Press it, turn it, move it"));
  yoke->type("sweep y 60000 2000");
  ASSERT_TRUE(desktop.checked(First, "Y-Axis"));
  choose(First, "Not assigned", "elev");
  ASSERT_TRUE(desktop.shows(First, "Elevator"));
  yoke->type("y=32768");
  EXPECT_TRUE(desktop.shows(First, "A 14 -1")) << desktop.names(First);
  EXPECT_TRUE(desktop.shows(First, "0BB2 holds -1")) << desktop.names(First);

  desktop.keys(First, {"alt+s"});
  ASSERT_TRUE(desktop.comesToFront(Curve));
  const auto from = graphPlace(33, 33);
  const auto to = graphPlace(50, 20);
  desktop.drag(from.first, from.second, to.first, to.second);
  EXPECT_TRUE(desktop.holds(Curve, "Input", "50")) << desktop.names(Curve);
  EXPECT_TRUE(desktop.holds(Curve, "Output", "20"));
  desktop.keys(Curve, {"alt+o"});
  EXPECT_TRUE(desktop.shows(First, "A 14 9[78]\\d\\d")) << desktop.names(First);
  desktop.keys(First, {"alt+o"});
  ASSERT_TRUE(desktop.comesToFront(Main));
  EXPECT_EQ(std::stoi(field(line(0, "Y-Axis"), 2)), 14);
  EXPECT_NEAR(std::stod(field(line(0, "Y-Axis"), 8)), 50, 0.5);
  EXPECT_NEAR(std::stod(field(line(0, "Y-Axis"), 10)), 0.4, 0.01);

  exitAndStartAgain();
  EXPECT_TRUE(desktop.checked(Main, "Enable joysticks"));
  EXPECT_TRUE(desktop.holds(Main, "Number of sticks", "2"));
  openStick("1");
  desktop.keys(First, {"alt+y"});
  EXPECT_TRUE(desktop.shows(First, "Elevator"));
  desktop.keys(First, {"alt+s"});
  desktop.keys(Curve, {"Next", "Next"});
  EXPECT_TRUE(desktop.holds(Curve, "Input", "50"));
  EXPECT_TRUE(desktop.holds(Curve, "Output", "20"));
}

TEST_F(Builder, AnAircraftMadeFromATemplateIsTheOneOfTheNextStart) {
  start();
  desktop.keys(Main, {"alt+m"});
  desktop.keys(NewAircraft, {"alt+n"});
  desktop.type(NewAircraft, "737-900");
  desktop.keys(NewAircraft, {"Return"});
  ASSERT_TRUE(desktop.comesToFront(Main));
  EXPECT_EQ(cockpit.folder.read("Cockpits/737-900/Flaps.cfg"),
            cockpit.folder.read("Templates/737-700/Flaps.cfg"));
  EXPECT_EQ(cockpit.folder.read("Cockpits/737-900/stick/stick0.cfg"),
            cockpit.folder.read("Templates/737-700/stick/stick0.cfg"));

  desktop.keys(Main, {"alt+a", "Down"});
  ASSERT_TRUE(desktop.shows(Main, "737-900")) << desktop.names(Main);
  exitAndStartAgain();
  EXPECT_TRUE(desktop.shows(Main, "737-900")) << desktop.names(Main);
  EXPECT_THAT(cockpit.folder.read("Vorlent.ini"), HasSubstr("Cockpit=737-900"));
}

/// The last row of the simulator's trace, by the name of its column.
class Flown : public Builder {
 protected:
  /// Presses until the status shows it: what is pressed while the cycle starts anew is forgotten.
  bool engages(const std::string& button, const std::string& shown) {
    for (int attempt = 0; attempt < 5; ++attempt) {
      desktop.click(Panel, button);
      if (desktop.shows(Main, shown, 3s)) return true;
    }
    return false;
  }
  double heading_deg() const {
    std::istringstream trace(cockpit.folder.read("flight.csv"));
    std::string names;
    std::getline(trace, names);
    std::string last;
    for (std::string row; std::getline(trace, row) && !trace.eof();) last = row;
    std::istringstream columns(names);
    std::istringstream values(last);
    std::string value;
    for (std::string name; std::getline(columns, name, ',') && std::getline(values, value, ',');)
      if (name == "true_heading_deg") return std::stod(value);
    return -1;
  }
};

TEST_F(Flown, TheAutopilotTurnsTheAircraftFromThePanelOnTheScreen) {
  start();
  const DisplaySocket display;
  display.send(cockpit.basePort, "Connection on a b 50 display");
  ASSERT_TRUE(display.receive("Data "));
  ASSERT_TRUE(eventually([&] { return heading_deg() >= 0; }));
  const double before_deg = heading_deg();
  desktop.keys(Main, {"alt+p"});
  ASSERT_TRUE(desktop.comesToFront(Panel));
  ASSERT_TRUE(engages("CMD A", "CMD")) << desktop.names(Main);
  ASSERT_TRUE(engages("HDG SEL", "HDG_SEL")) << desktop.names(Main);
  desktop.click(Panel, "HEADING");
  desktop.retype(Panel, "90");
  desktop.keys(Panel, {"Return"});
  EXPECT_TRUE(desktop.holds(Panel, "HEADING", "90")) << desktop.names(Panel);
  EXPECT_TRUE(eventually([&] { return std::abs(heading_deg() - before_deg) > 2; }))
      << before_deg << " to " << heading_deg();
}

}  // namespace
}  // namespace vorlent
