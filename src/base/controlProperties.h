#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vorlent {

class Control;
class Form;

/// A control's property as text: Enabled, Visible, ToolTipText and Tag of every control, and Text,
/// Value, Caption, BackColor, FillColor, ListIndex, ListCount, Checked and Locked where it has one.
/// Names go in any case of letters; nothing for one that the control does not have.
std::optional<std::string> propertyOf(const Control& control, std::string_view name);

/// Caption, Visible or ActiveControl, the name of the one that has the focus.
std::optional<std::string> propertyOf(const Form& form, std::string_view name);

}  // namespace vorlent
