#include "base/controlProperties.h"

#include <array>

#include "base/controls.h"
#include "base/text.h"

namespace vorlent {
namespace {

std::string asText(const std::string& text) { return text; }
std::string asText(bool value) { return value ? "True" : "False"; }
std::string asText(int value) { return std::to_string(value); }

using Value = std::optional<std::string>;

/// Reads a property of the controls of one kind; of another it gives nothing.
template <class Kind, auto Member>
Value of(const Control& control) {
  const auto* kind = dynamic_cast<const Kind*>(&control);
  return kind != nullptr ? Value(asText((kind->*Member)())) : std::nullopt;
}

Value textOfCombo(const Control& control) {
  const auto* box = dynamic_cast<const ComboBox*>(&control);
  return box != nullptr ? Value(box->Text()) : std::nullopt;
}

Value countOfCombo(const Control& control) {
  const auto* box = dynamic_cast<const ComboBox*>(&control);
  return box != nullptr ? Value(std::to_string(box->Items().size())) : std::nullopt;
}

struct Row {
  std::string_view name;
  Value (*value)(const Control& control);
};

constexpr std::array Rows{
    Row{"Enabled", of<Control, &Control::Enabled>},
    Row{"Visible", of<Control, &Control::Visible>},
    Row{"ToolTipText", of<Control, &Control::ToolTipText>},
    Row{"Tag", of<Control, &Control::Tag>},
    Row{"Text", of<TextBox, &TextBox::Text>},
    Row{"Text", textOfCombo},
    Row{"Value", of<CheckBox, &CheckBox::Value>},
    Row{"Value", of<OptionButton, &OptionButton::Value>},
    Row{"Value", of<Bar, &Bar::Value>},
    Row{"Caption", of<CheckBox, &CheckBox::Caption>},
    Row{"Caption", of<OptionButton, &OptionButton::Caption>},
    Row{"Caption", of<Button, &Button::Caption>},
    Row{"Caption", of<Label, &Label::Caption>},
    Row{"BackColor", of<TextBox, &TextBox::BackColor>},
    Row{"BackColor", of<Button, &Button::BackColor>},
    Row{"BackColor", of<Shape, &Shape::FillColor>},
    Row{"FillColor", of<Shape, &Shape::FillColor>},
    Row{"ListIndex", of<ComboBox, &ComboBox::ListIndex>},
    Row{"ListCount", countOfCombo},
    Row{"Checked", of<MenuItem, &MenuItem::Checked>},
    Row{"Locked", of<TextBox, &TextBox::Locked>},
};

}  // namespace

std::optional<std::string> propertyOf(const Control& control, std::string_view name) {
  for (const Row& row : Rows)
    if (equalIgnoringCase(row.name, name))
      if (auto value = row.value(control)) return value;
  return std::nullopt;
}

std::optional<std::string> propertyOf(const Form& form, std::string_view name) {
  if (equalIgnoringCase(name, "Caption")) return form.Caption();
  if (equalIgnoringCase(name, "Visible")) return asText(form.Visible());
  if (!equalIgnoringCase(name, "ActiveControl")) return std::nullopt;
  const Control* active = form.ActiveControl();
  return active != nullptr ? active->name() : std::string();
}

}  // namespace vorlent
