#pragma once

#include <cstdint>

namespace vorlent {

/// What an operator does to a control or a form, and the value that goes with it.
enum class Deed : std::uint8_t {
  Line,       ///< a line of the operator's console
  Focus,      ///< comes to the control
  Leave,      ///< moves on from it
  Text,       ///< a box: the text that it has now
  Value,      ///< a check box or an option: "1" or "0"
  Choose,     ///< a list: the place of its entry, from 0
  Press,      ///< a button or a menu entry
  Key,        ///< virtual key code and sum of Held, a blank between them
  MouseDown,  ///< a picture: button, sum of Held, x and y, blanks between them
  MouseMove,  ///< x and y
  MouseUp,    ///< x and y
  Close,      ///< a form's close box
  ExitSignal  ///< SIGINT, SIGTERM or SIGHUP, or the end of the session
};

}  // namespace vorlent
