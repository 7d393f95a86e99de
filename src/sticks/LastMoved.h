#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "sticks/conditioning.h"

namespace vorlent {

/// A row of a stick's windows: an axis 0..3, a line 0..3 or an extra button 0..10.
struct StickRow {
  enum Kind { Axis, Line, Extra } kind = Axis;
  int index = 0;
  bool operator==(const StickRow&) const = default;
};

/// Finds out which control a builder moves, so that the window can select its row.
class LastMoved {
 public:
  /// What a tick has read.
  struct Readings {
    std::array<std::int16_t, 4> axes{};
    ButtonLevels buttons{};  ///< the first fifteen, decoded
    bool axisEncoders = false;
    int lineMode = 0;  ///< as frmCStick::BtnMode
    std::array<bool, 4> isSwitch{};
  };

  /// An axis counts as moved by a twentieth of its travel, a button when it has been pressed for
  /// two ticks, a switch when it has stood for two ticks where it did not stand before, an encoder
  /// at every edge. The first tick of all finds nothing.
  std::optional<StickRow> moved(const Readings& now);
  /// Nobody asks what moves: what moves later, moves from here.
  void restAt(const Readings& now);

 private:
  std::optional<StickRow> movedAxis(const Readings& now);
  std::optional<StickRow> movedButton(const Readings& now);
  bool settles(std::size_t button, std::int16_t level);

  bool known_ = false;
  std::array<std::int16_t, 4> restAxes_{};
  ButtonLevels last_{};
  ButtonLevels settled_{};
};

}  // namespace vorlent
