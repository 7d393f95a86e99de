#pragma once

#include <string>
#include <string_view>

namespace vorlent {

class Control;

/// What the answer says behind "error: ".
struct CommandError {
  std::string what;
};

// What an operator's hand does to a control, which has the focus then. Each raises CommandError
// where a hand could not, or where the operands say nothing, and changes nothing then.

/// A button, a menu entry, an option; turns a check box over.
void press(Control& control);
/// A text, which is then left; 0, 1, True or False for a check box or an option.
void set(Control& control, std::string_view value);
/// An entry of a list by its text, in another case of letters when only one has it.
void select(Control& control, std::string_view entry);
void focus(Control& control);
/// Presses a key on the control that has the focus: a virtual key code 0..255 and a sum of Held.
void key(Control& control, std::string_view codeAndShift);
/// From one place of a picture to another, two coordinates each in percent of what is painted.
void drag(Control& control, std::string_view fromAndTo);

}  // namespace vorlent
