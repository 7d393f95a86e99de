#include <array>
#include <cmath>
#include <cstdlib>
#include <random>

#include "core/frmMainClient.h"
#include "sticks/StickTest.h"

namespace vorlent {
namespace {

/// How a stick is wired, and the file that says so.
struct Wiring {
  struct Axis {
    int code, nullZone, damp, encoder, acceleration, invert;
    std::array<float, 6> curve;  ///< y1, x2, X3, m1, m2, m3
  };
  struct Line {
    int code, kind, acceleration;
  };
  std::array<Axis, 4> axes;
  std::array<Line, 4> lines;
  std::array<int, 11> extra;

  std::string file() const {
    std::string text;
    for (const Axis& a : axes) {
      text += "Axis, ";
      for (const int number : {a.code, a.nullZone, a.damp, a.encoder, a.acceleration})
        text += std::to_string(number) + ",";
      for (const float number : a.curve) text += ::testing::PrintToString(number) + ",";
      text += std::to_string(a.invert) + "\r\n";
    }
    for (const Line& l : lines)
      text += "Button," + std::to_string(l.code) + "," + std::to_string(l.kind) + "," +
              std::to_string(l.acceleration) + "\r\n";
    for (const int code : extra) text += "Button," + std::to_string(code) + "\r\n";
    return text;
  }
};

/// The same rules once more, written apart from the server's: what a stick sends at each tick.
class SecondStick {
 public:
  SecondStick(const Wiring& wiring, double pause_ms) : w_(wiring), pause_ms_(pause_ms) {}

  std::vector<std::string> tick(const ControllerState& state, std::uint32_t now_ms) {
    sent_.clear();
    std::array<int, 16> pressed{};
    for (std::size_t i = 0; i < pressed.size(); ++i) pressed.at(i) = state.buttons.at(i) / 128;
    const bool lineEncoders = w_.lines[3].kind == 2;
    const bool coded = !lineEncoders && std::none_of(w_.lines.begin(), w_.lines.end(),
                                                     [](const auto& l) { return l.kind == 1; });
    if (coded) decode(pressed);
    const std::array<int, 4> v = conditioned({state.x, state.y, state.slider[0], state.rz});
    if (w_.axes[3].encoder == 1) {
      for (const std::size_t i : {0U, 2U})
        turn(axisGroup_, axisLevels_, i, v.at(i) > 8192, v.at(i + 1) > 8192, w_.axes.at(i).code,
             w_.axes.at(i).acceleration, 0, now_ms);
    } else {
      for (std::size_t i = 0; i < 4; ++i) lever(i, v.at(i));
    }
    if (lineEncoders) {
      for (const std::size_t i : {0U, 2U})
        turn(lineGroup_, lineLevels_, i, pressed.at(i), pressed.at(i + 1), w_.lines.at(i).code,
             w_.lines.at(i).acceleration, 1, now_ms);
    } else {
      for (std::size_t i = 0; i < (coded ? 15U : 4U); ++i) button(i, pressed.at(i), coded);
    }
    return sent_;
  }

 private:
  struct Group {
    std::uint32_t last_ms = 0;
    int direction = 0;
  };

  void send(char kind, int code, double value) {
    sent_.push_back(std::string(1, kind) + " " + std::to_string(code) + " " +
                    ::testing::PrintToString(static_cast<float>(value)));
  }

  /// A diode matrix: the places of the codes 3, 5, 6, 7 and 9 to 15.
  static void decode(std::array<int, 16>& pressed) {
    const int code = pressed[0] + 2 * pressed[1] + 4 * pressed[2] + 8 * pressed[3];
    constexpr std::array<std::size_t, 16> place{0, 0,  0, 4, 0,  11, 8,  5,
                                                0, 12, 9, 6, 14, 13, 10, 7};
    const std::size_t button = place.at(static_cast<std::size_t>(code));
    const auto first = button == 0 ? pressed.begin() + 4 : pressed.begin();
    std::fill(first, button == 0 ? pressed.begin() + 15 : pressed.begin() + 4, 0);
    if (button != 0) pressed.at(button) = 1;
  }

  std::array<int, 4> conditioned(const std::array<std::int32_t, 4>& readings) {
    std::array<int, 4> v{};
    for (std::size_t i = 0; i < 4; ++i) {
      v.at(i) = readings.at(i) / 2;
      if (w_.axes.at(i).damp == 1) {
        v.at(i) = static_cast<int>(std::nearbyint(damped_.at(i) + (v.at(i) - damped_.at(i)) / 4.0));
        damped_.at(i) = v.at(i);
      }
      if (w_.axes.at(i).invert == 1) v.at(i) = 32767 - v.at(i);
    }
    return v;
  }

  static int curved(const std::array<float, 6>& c, int reading) {
    const float A = 327.67F, v = static_cast<float>(reading);
    const auto [y1, x2, X3, m1, m2, m3] = c;
    const float first = y1 * A + m1 * x2 * A, p = v / A;
    float out = first + (X3 - x2) * A * m2 + (v - X3 * A) * m3;
    if (v < X3 * A) out = first + (v - x2 * A) * m2;
    if (v < x2 * A) out = y1 * A + v * m1;
    if (X3 == 0) out = (m1 * p * p + m2 * p + m3) * A;
    return static_cast<int>(std::nearbyint(std::min(std::max(out, 0.0F), 32767.0F)));
  }

  void lever(std::size_t i, int v) {
    const int out = curved(w_.axes.at(i).curve, v);
    if (std::abs(levers_.at(i) - out) <= w_.axes.at(i).nullZone) return;
    send('A', w_.axes.at(i).code, out);
    levers_.at(i) = out;
  }

  void button(std::size_t i, int pressed, bool coded) {
    const int kind = coded ? 0 : w_.lines.at(i).kind;
    const int code = i < 4 ? w_.lines.at(i).code : w_.extra.at(i - 4);
    int& held = buttons_.at(i);
    if (kind == 1 && held != pressed) send('T', code, held = pressed);
    if (kind == 0 && pressed == 1) send('P', code, held = 1 - held);
  }

  void turn(Group& group, std::array<int, 4>& levels, std::size_t i, int a, int b, int code,
            int acceleration, int extra, std::uint32_t now_ms) {
    const int oldB = levels.at(i + 1);
    if (a == levels.at(i) && b == oldB) return;
    levels.at(i) = a;
    levels.at(i + 1) = b;
    const int direction = a == oldB ? 1 : -1;
    const std::uint32_t dt_ms = now_ms - group.last_ms;
    group.last_ms = now_ms;
    const bool slow = dt_ms > pause_ms_;
    if (group.direction == -direction) {
      if (!slow) return;
      const bool again = pushed_ == direction;
      pushed_ = direction;
      if (!again) return;
    }
    if (group.direction != direction) group.direction = direction;
    const double step =
        slow || dt_ms == 0 ? 1 : std::trunc(acceleration * pause_ms_ / dt_ms) + extra;
    send('E', code, step == 0 ? 0 : step * direction);
  }

  const Wiring& w_;
  double pause_ms_;
  std::vector<std::string> sent_;
  std::array<int, 4> damped_{}, levers_{}, axisLevels_{}, lineLevels_{};
  std::array<int, 15> buttons_{};
  Group axisGroup_, lineGroup_;
  int pushed_ = 0;
};

/// Wirings and hands, the same ones on every run and system.
class RandomStick : public StickTest {
 protected:
  int drawn(int lowest, int highest) {
    return lowest + static_cast<int>(generator_() % static_cast<unsigned>(highest - lowest + 1));
  }
  bool oneIn(int count) { return drawn(1, count) == 1; }

  std::array<float, 6> drawnCurve() {
    const auto half = [this](int lowest, int highest) {
      return static_cast<float>(drawn(lowest, highest)) / 2;
    };
    if (oneIn(3)) return {0, 50, 0, 0.015625F, half(-1, 1), static_cast<float>(drawn(-20, 60))};
    return {static_cast<float>(drawn(-20, 60)),
            static_cast<float>(drawn(1, 49)),
            static_cast<float>(drawn(50, 99)),
            half(-3, 5),
            half(-3, 5),
            half(-3, 5)};
  }
  Wiring drawnWiring() {
    Wiring w{};
    const int encoders = oneIn(3), lineMode = drawn(0, 2);
    for (auto& a : w.axes)
      a = {drawn(1, 107), oneIn(2) ? 0 : drawn(1, 2000),
           drawn(0, 1),   encoders,
           drawn(0, 9),   drawn(0, 1),
           drawnCurve()};
    for (auto& l : w.lines) l = {drawn(1, 237), lineMode, drawn(0, 9)};
    if (lineMode == 1)
      for (std::size_t i = 1; i < 4; ++i) w.lines.at(i).kind = drawn(0, 1);
    for (int& code : w.extra) code = drawn(1, 237);
    return w;
  }
  void moveHands() {
    for (std::int32_t* axis : {&board().x, &board().y, &board().slider[0], &board().rz})
      if (oneIn(3)) *axis = oneIn(2) ? 65535 * drawn(0, 1) : drawn(0, 65535);
    for (std::size_t i = 0; i < 20; ++i)
      if (oneIn(4)) board().buttons.at(i) = oneIn(2) ? 0x80 : 0;
  }

 private:
  std::mt19937 generator_{1};
};

TEST_F(RandomStick, SendsWhatASecondReadingOfTheRulesSends) {
  t.loop.advance(1200);
  ASSERT_EQ(t.store.EffectivePoll, 50);
  t.form.txtPoll.Text("32000");  // the ticks are the test's own
  std::array<int, 4> kinds{};    // of "A", "T", "P", "E"
  for (int round = 0; round < 100; ++round) {
    const Wiring wiring = drawnWiring();
    t.folder.write(stickFileOf(0), wiring.file());
    board() = {};
    click(1);
    SecondStick second(wiring, 500);
    for (int tick = 0, passed_ms = 0; passed_ms < 30000 && tick < 200; ++tick) {
      constexpr std::array delays_ms{0, 1, 20, 50, 120, 499, 500, 501, 700};
      const int delay_ms = delays_ms.at(static_cast<std::size_t>(drawn(0, 8)));
      t.loop.advance(delay_ms);
      passed_ms += delay_ms;
      moveHands();
      stick().PollStick();
      const auto expected = second.tick(board(), t.loop.tickCount_ms());
      ASSERT_EQ(commands->take(), expected) << "tick " << tick << " of\n" << wiring.file();
      for (const std::string& triple : expected) ++kinds.at(std::string("ATPE").find(triple[0]));
    }
    click(0);
  }
  for (const int count : kinds) EXPECT_GT(count, 1000);
}

}  // namespace
}  // namespace vorlent
