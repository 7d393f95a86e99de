#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include "endtoend/OperatorAtTheScreen.h"
#include "sticks/CurvePicture.h"
#include "support/eventually.h"

namespace vorlent {
namespace {

using testing::HasSubstr;

const std::string Yoke = "^1 setup", Knob = "^2 setup", Curve = "^Sensitivity";

/// Of a line of a stick's file; the name is the first.
std::string field(const std::string& line, int number) {
  std::istringstream fields(line);
  std::string text;
  for (int i = 0; i < number; ++i) std::getline(fields, text, ',');
  return text;
}

/// On a builder's desk are a yoke and a board with a knob, which nothing is wired to yet.
class Builder : public OperatorAtTheScreen {
 protected:
  Builder() {
    for (const std::string program : {"vorlent", "vorlent-stick"}) cockpit.addProgram(program);
    const std::string folder = "Cockpits/737-700/stick/";
    for (const std::string file : {"stick0.cfg", "stick1.cfg"})
      cockpit.folder.write(folder + file, cockpit.folder.read(folder + "stick7.cfg"));
    yoke = board("a-yoke");
    knob = board("b-knob");
    cockpit.startSimulator({"--trace", cockpit.folder / "flight.csv"});
    startWindows();
  }

  /// By the menu.
  void exitAndStartAgain() {
    desktop.keys(Main, {"alt+f", "e"});
    EXPECT_EQ(server->waitForEnd(), 0) << server->output();
    startWindows();
  }

  void switchTheSticksOn() {
    desktop.keys(Main, {"alt+b"});
    desktop.retype(Main, "2");
    desktop.keys(Main, {"alt+j"});
    EXPECT_TRUE(desktop.checked(Main, "Enable joysticks"));
    EXPECT_TRUE(desktop.shows(Main, "2 on"));
  }
  void openStick(const std::string& number) {
    desktop.keys(Main, {"alt+k", number, "alt+e"});
    EXPECT_TRUE(desktop.comesToFront("^" + number + " setup"));
  }
  void closeStick(const std::string& window) {
    desktop.keys(window, {"alt+o"});
    EXPECT_TRUE(desktop.comesToFront(Main));
  }
  /// Types a part of a name into the list of the selected row.
  void choose(const std::string& window, const std::string& part) {
    desktop.click(window, "Command of the selected row");
    desktop.retype(window, part);
    desktop.keys(window, {"Return"});
  }

  void wireTheYoke() {
    desktop.keys(Yoke, {"alt+p"});
    EXPECT_TRUE(desktop.checked(Yoke, "Press it, turn it, move it"));
    yoke->type("sweep y 60000 2000");
    EXPECT_TRUE(desktop.checked(Yoke, "Y-Axis"));
    choose(Yoke, "elev");
    EXPECT_TRUE(desktop.shows(Yoke, "Elevator"));
    yoke->type("y=32768");
    EXPECT_TRUE(desktop.shows(Yoke, "A 14 -1")) << desktop.names(Yoke);
    EXPECT_TRUE(desktop.shows(Yoke, "0BB2 holds -1")) << desktop.names(Yoke);
  }
  void bendItsCurve() {
    desktop.keys(Yoke, {"alt+s"});
    EXPECT_TRUE(desktop.comesToFront(Curve));
    const auto from = graphPlace(33, 33);
    const auto to = graphPlace(50, 20);
    desktop.drag(from.first, from.second, to.first, to.second);
    EXPECT_TRUE(desktop.holds(Curve, "Input", "50")) << desktop.names(Curve);
    EXPECT_TRUE(desktop.holds(Curve, "Output", "20"));
    desktop.keys(Curve, {"alt+o"});
    EXPECT_TRUE(desktop.comesToFront(Yoke));
    EXPECT_TRUE(desktop.shows(Yoke, "A 14 9[78]\\d\\d")) << desktop.names(Yoke);
  }
  void wireASwitch() {
    yoke->type("press 1");
    EXPECT_TRUE(desktop.checked(Yoke, "Button 1")) << desktop.names(Yoke);
    yoke->type("release 1");
    desktop.click(Yoke, "On/Off switch, Button 1");
    EXPECT_TRUE(desktop.checked(Yoke, "On/Off switch, Button 1"));
    choose(Yoke, "landing");
    EXPECT_TRUE(desktop.shows(Yoke, "Landing lights")) << desktop.names(Yoke);
    yoke->type("press 1");
    EXPECT_TRUE(desktop.shows(Yoke, "T 45 1")) << desktop.names(Yoke);
    EXPECT_TRUE(desktop.shows(Yoke, "028C holds \\d+.*")) << desktop.names(Yoke);
  }
  void wireAHeadingKnob() {
    desktop.keys(Knob, {"alt+u", "alt+e"});
    EXPECT_TRUE(desktop.shows(Knob, "Encoder 1")) << desktop.names(Knob);
    choose(Knob, "A/P heading");
    EXPECT_TRUE(desktop.shows(Knob, "A/P heading")) << desktop.names(Knob);
    knob->type("press 2 wait 700 press 1 wait 700 release 2 wait 700 release 1");
    EXPECT_TRUE(desktop.shows(Knob, "E 7 1")) << desktop.names(Knob);
    EXPECT_TRUE(desktop.shows(Knob, "07CC holds -?\\d+")) << desktop.names(Knob);
  }
  void flyFromThePanel() {
    const DisplaySocket display;
    display.send(cockpit.basePort, "Connection on a b 50 display");
    ASSERT_TRUE(display.receive("Data "));
    ASSERT_TRUE(eventually([&] { return heading_deg() >= 0; }));
    const double before_deg = heading_deg();
    turnByThePanel();
    EXPECT_TRUE(eventually([&] { return std::abs(heading_deg() - before_deg) > 2; }, 60s))
        << before_deg << " to " << heading_deg();
    desktop.keys(Panel, {"Escape"});
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
  /// Of the last row of the simulator's trace; -1 before the first.
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

  std::unique_ptr<Process> yoke, knob;

 private:
  std::unique_ptr<Process> board(const std::string& name) const {
    auto stick = cockpit.program("vorlent-stick", {"--name", name, "x=32768", "y=32768"});
    EXPECT_TRUE(stick->waitForLine("ready")) << stick->output();
    return stick;
  }
};

TEST_F(Builder, WiresMakesAnAircraftFliesAndFindsEverythingAsHeLeftItAtTheNextStart) {
  switchTheSticksOn();
  openStick("1");
  wireTheYoke();
  bendItsCurve();
  wireASwitch();
  closeStick(Yoke);
  EXPECT_EQ(std::stoi(field(line(0, "Y-Axis"), 2)), 14);
  EXPECT_NEAR(std::stod(field(line(0, "Y-Axis"), 8)), 50, 0.5);
  EXPECT_NEAR(std::stod(field(line(0, "Y-Axis"), 10)), 0.4, 0.01);
  EXPECT_EQ(line(0, "Button-1,"), "Button-1,45,1,1\r");
  openStick("2");
  wireAHeadingKnob();
  closeStick(Knob);
  EXPECT_EQ(line(1, "Button-1,"), "Button-1,7,2,1\r");

  makeAnAircraft();
  for (const std::string file : {"Flaps.cfg", "stick/stick0.cfg"})
    EXPECT_EQ(cockpit.folder.read("Cockpits/737-900/" + file),
              cockpit.folder.read("Templates/737-700/" + file));
  flyFromThePanel();
  desktop.keys(Main, {"alt+a", "Down"});
  EXPECT_TRUE(desktop.shows(Main, "737-900")) << desktop.names(Main);

  exitAndStartAgain();
  EXPECT_TRUE(desktop.shows(Main, "737-900")) << desktop.names(Main);
  EXPECT_THAT(cockpit.folder.read("Vorlent.ini"), HasSubstr("Cockpit=737-900"));
  EXPECT_TRUE(desktop.checked(Main, "Enable joysticks"));
  EXPECT_TRUE(desktop.holds(Main, "Number of sticks", "2"));
  desktop.keys(Main, {"alt+a", "Up"});
  EXPECT_TRUE(desktop.shows(Main, "737-700")) << desktop.names(Main);
  desktop.keys(Main, {"alt+j"});
  EXPECT_TRUE(desktop.shows(Main, "off")) << desktop.names(Main);
  desktop.keys(Main, {"alt+j"});
  EXPECT_TRUE(desktop.shows(Main, "2 on")) << desktop.names(Main);
  openStick("1");
  desktop.keys(Yoke, {"alt+y"});
  EXPECT_TRUE(desktop.shows(Yoke, "Elevator"));
  desktop.keys(Yoke, {"alt+s"});
  desktop.keys(Curve, {"Next", "Next"});
  EXPECT_TRUE(desktop.holds(Curve, "Input", "50"));
  EXPECT_TRUE(desktop.holds(Curve, "Output", "20"));
  desktop.keys(Curve, {"alt+o"});
  desktop.keys(Yoke, {"alt+u"});
  EXPECT_TRUE(desktop.checked(Yoke, "On/Off switch, Button 1"));
  EXPECT_TRUE(desktop.shows(Yoke, "Landing lights"));
  closeStick(Yoke);
  openStick("2");
  desktop.keys(Knob, {"alt+u"});
  EXPECT_TRUE(desktop.shows(Knob, "A/P heading"));
}

}  // namespace
}  // namespace vorlent
