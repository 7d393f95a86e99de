#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/Controllers.h"
#include "sticks/LastMoved.h"
#include "sticks/conditioning.h"
#include "sticks/encoders.h"

namespace vorlent {

class Control;
class Shape;
class frmCStick;
struct Sticks;

/// What a stick remembers from tick to tick, and one tick: device, conditioning, and the line
/// of triples that tells what has changed.
class StickPoll {
 public:
  StickPoll(Sticks& sticks, frmCStick& stick) : sticks_(sticks), stick_(stick) {}

  /// One tick: the line of triples that tells what has changed. A read that fails leaves the last
  /// state in place; before the first one that succeeds nothing is known of the hardware, and the
  /// line is empty. A control whose assignment is no whole number gives nothing.
  std::string tick();
  /// As the last tick found the board.
  bool unplugged() const { return unplugged_; }

 private:
  using AxisValues = std::array<std::int16_t, 4>;

  bool readDevice();
  void tellUnplugged(bool unplugged);
  AxisValues rawAxes() const;
  AxisValues conditionedAxes(const AxisValues& raw);
  std::string axisTriples(const AxisValues& v);
  std::string axisTriple(int axis, std::int16_t out);
  std::string axisEncoderTriples(const AxisValues& v);
  std::string buttonTriples();
  std::string told(StickRow row, std::string triple);
  std::string buttonEncoderTriples();
  std::string decodedButtonTriples();
  std::string lineTriples();
  std::string pushButtonTriple(std::size_t button, const Control& assigned);

  /// One of a group's two encoders at this tick.
  struct Encoder {
    std::size_t lastBits;  ///< the first of its two places in LastBits
    std::int16_t A, B;     ///< the lines' levels
    const Control& assigned;
    const std::string& acceleration;
    int extraStep;
    Shape& lamp;
  };
  std::string encoderTriple(const Encoder& encoder, EncoderGroup& group);

  Sticks& sticks_;
  frmCStick& stick_;
  ControllerState state_;
  bool stateKnown_ = false;
  bool unplugged_ = false;
  ButtonLevels Button_{};

  AxisValues AxisDamped_{};
  /// 0 to 3: the curve's output that was sent last; 4 to 19: what button i - 4 sent last.
  std::array<std::int16_t, 20> LastSent_{};
  /// The encoders' last levels: 0 to 3 of the axes, 4 to 7 of the lines.
  std::array<std::int16_t, 8> LastBits_{};
  EncoderGroup axisEncoders_;
  EncoderGroup buttonEncoders_;
};

}  // namespace vorlent
