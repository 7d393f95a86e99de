#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "independentText.h"
#include "require.h"
#include "sticks/clsJoyst.h"
#include "sticks/frmCMore.h"
#include "sticks/frmCStick.h"
#include "sticks/stickFile.h"
#include "support/Sticks.h"

// An input is the file of a stick. It is loaded and polled with a board whose axes and buttons
// move; it must stay as it is until it is saved, and what is saved must be read as the same stick.

namespace {

using vorlent::frmCMore;
using vorlent::frmCStick;

constexpr int Ticks = 12;

class Cockpit {
 public:
  Cockpit() {
    vorlent::addSticks(t, 1);
    t.start();
    VORLENT_REQUIRE(!t.exitStatus());
  }

  void run(const std::string& text) {
    load(text);
    check();
    for (int tick = 0; tick < Ticks; ++tick) poll(tick);
    VORLENT_REQUIRE(file() == text);
    saveAndLoad();
    check();
    VORLENT_REQUIRE(!t.exitStatus());
  }

 private:
  frmCStick& stick() { return *t.server.sticks.CStick[0]; }
  frmCMore& more() { return *t.server.sticks.CMore[0]; }
  std::string file() const { return t.folder.read(vorlent::stickFileOf(0)); }

  void load(const std::string& text) {
    t.form.chkStick.Value(0);
    t.folder.write(vorlent::stickFileOf(0), text);
    t.form.chkStick.Value(1);
    VORLENT_REQUIRE(t.server.sticks.CStick[0] && t.server.sticks.CMore[0]);
    VORLENT_REQUIRE(file() == text);
  }

  static void checkBox(const vorlent::TextBox& box) {
    for (const char c : box.Text()) VORLENT_REQUIRE(independent::isDigit(c) || c == '.');
    VORLENT_REQUIRE(!box.Text().empty());
  }

  std::vector<float> curve(int axis) {
    stick().ChannelID(static_cast<std::int16_t>(axis));
    return {stick().y1(), stick().x2(), stick().X3(), stick().m1(), stick().m2(), stick().m3()};
  }

  /// What holds of every stick, whatever its file was.
  void check() {
    for (int i = 0; i < frmCStick::Axes; ++i) {
      checkBox(stick().txtNull(i));
      checkBox(stick().txtAccA(i));
      for (const auto* box : {&stick().chkDamp(i), &stick().chkInvert(i)})
        VORLENT_REQUIRE(box->Value() == 0 || box->Value() == 1);
      for (const float number : curve(i)) VORLENT_REQUIRE(std::isfinite(number));
    }
    for (int i = 0; i < frmCStick::Lines; ++i) checkBox(stick().txtAccBtn(i));
    VORLENT_REQUIRE(stick().BtnMode() >= 0 && stick().BtnMode() <= 2);
    VORLENT_REQUIRE(stick().BtnMode() == 1 ? stick().cmdMore.Enabled() : true);
  }

  void poll(int tick) {
    auto& state = t.controllers.all[0].state;
    state.x = state.slider[0] = tick * 5461;
    state.y = state.rz = (tick / 2 % 2) * 65535;
    for (std::size_t button = 0; button < state.buttons.size(); ++button) {
      const bool down = (static_cast<std::size_t>(tick) + button) / 2 % 2 != 0;
      state.buttons[button] = down ? vorlent::ControllerState::Pressed : std::uint8_t{0};
    }
    t.store.EffectivePoll = 50;
    stick().PollStick();
    VORLENT_REQUIRE(t.store.StickMessage.empty());
  }

  std::vector<std::string> texts() {
    std::vector<std::string> all;
    for (int i = 0; i < frmCStick::Axes; ++i)
      all.insert(all.end(), {stick().optAxes(i).Tag(), stick().txtNull(i).Text(),
                             stick().chkDamp(i).Tag(), stick().chkDamp(i).content(),
                             stick().txtAccA(i).Text(), stick().chkInvert(i).content()});
    for (int i = 0; i < frmCStick::Lines; ++i)
      all.insert(all.end(), {stick().optSwitches(i).Tag(), stick().OnOff(i).Tag(),
                             stick().txtAccBtn(i).Text()});
    for (int i = 0; i < frmCMore::Buttons; ++i) all.push_back(more().optSwitches(i).Tag());
    return all;
  }

  std::vector<float> curves() {
    std::vector<float> all;
    for (int i = 0; i < frmCStick::Axes; ++i)
      for (const float number : curve(i)) all.push_back(number);
    return all;
  }

  /// Seven digits of a single are enough for one part in a million.
  void saveAndLoad() {
    const auto before = texts();
    const auto curvesBefore = curves();
    stick().cmdOK.press();
    load(file());
    VORLENT_REQUIRE(texts() == before);
    const auto curvesAfter = curves();
    for (std::size_t i = 0; i < curvesBefore.size(); ++i)
      VORLENT_REQUIRE(std::fabs(double{curvesAfter[i]} - curvesBefore[i]) <=
                      1e-6 * std::fabs(double{curvesBefore[i]}));
  }

  vorlent::TestServer t;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Cockpit cockpit;
  cockpit.run(std::string(data, data + size));
  return 0;
}
