#include "console/operatorHand.h"

#include <algorithm>
#include <vector>

#include "base/RuntimeError.h"
#include "base/controls.h"
#include "base/numbers.h"
#include "base/text.h"

namespace vorlent {
namespace {

void expectUsable(const Control& control) {
  if (!control.Visible()) throw CommandError{control.name() + " is not visible"};
  if (!control.Enabled()) throw CommandError{control.name() + " is disabled"};
}

bool switchValue(std::string_view text) {
  const std::string value = trimmed(text);
  if (value == "1" || equalIgnoringCase(value, "True")) return true;
  if (value == "0" || equalIgnoringCase(value, "False")) return false;
  throw CommandError{"\"" + value + "\" is none of 0, 1, True and False"};
}

/// The entry with this text; in another case of letters when only one has it.
int itemIndex(const ComboBox& box, std::string_view text) {
  if (const int exact = box.indexOf(text); exact >= 0) return exact;
  const auto& items = box.Items();
  const auto sameText = [text](const auto& item) { return equalIgnoringCase(item.text, text); };
  const auto count = std::count_if(items.begin(), items.end(), sameText);
  if (count == 0) throw CommandError{box.name() + " has no entry \"" + std::string(text) + "\""};
  if (count > 1) throw CommandError{"\"" + std::string(text) + "\" is ambiguous"};
  return static_cast<int>(std::find_if(items.begin(), items.end(), sameText) - items.begin());
}

/// The numbers of a text with blanks between them, as many as are wanted.
std::vector<double> numbersIn(std::string_view text, std::size_t count) {
  std::vector<double> numbers;
  std::string rest = trimmed(text) + " ";
  while (!rest.empty()) {
    const std::string word = GetNext(rest, " ");
    if (word.empty()) continue;
    const auto number = numeric(word);
    if (!number) throw CommandError{"\"" + word + "\" is no number"};
    numbers.push_back(*number);
  }
  if (numbers.size() != count) throw CommandError{"needs " + std::to_string(count) + " numbers"};
  return numbers;
}

int wholeNumber(double number, int least, int most) {
  if (number >= least && number <= most && number == static_cast<int>(number))
    return static_cast<int>(number);
  throw CommandError{doubleText(number) + " is no whole number from " + std::to_string(least) +
                     " to " + std::to_string(most)};
}

/// As far as a hand can reach, and a little beyond the edges.
float percentIn(double number) {
  constexpr double Reach = 1000;
  if (number < -Reach || number > Reach) throw CommandError{doubleText(number) + " is too far"};
  return toSingle(number);
}

}  // namespace

void focus(Control& control) {
  expectUsable(control);
  if (dynamic_cast<const MenuItem*>(&control) == nullptr) control.getFocus();
}

void key(Control& control, std::string_view codeAndShift) {
  expectUsable(control);
  const auto numbers = numbersIn(codeAndShift, 2);
  const int keyCode = wholeNumber(numbers[0], 0, 255);
  const int shift = wholeNumber(numbers[1], 0, Held::Shift + Held::Ctrl + Held::Alt);
  if (!control.hasFocus()) throw CommandError{control.name() + " does not have the focus"};
  control.keyDown(keyCode, shift);
}

void drag(Control& control, std::string_view fromAndTo) {
  expectUsable(control);
  auto* picture = dynamic_cast<Picture*>(&control);
  if (!picture) throw CommandError{control.name() + " is no picture"};
  const auto numbers = numbersIn(fromAndTo, 4);
  const auto from = picture->placeAt(percentIn(numbers[0]), percentIn(numbers[1]));
  const auto to = picture->placeAt(percentIn(numbers[2]), percentIn(numbers[3]));
  picture->getFocus();
  picture->mouseDown(Picture::LeftButton, 0, from);
  picture->mouseMove(to);
  picture->mouseUp(to);
}

void press(Control& control) {
  focus(control);
  if (const auto* button = dynamic_cast<Button*>(&control)) {
    button->press();
  } else if (auto* box = dynamic_cast<CheckBox*>(&control)) {
    box->Value(box->Value() == 0 ? 1 : 0);
  } else if (auto* option = dynamic_cast<OptionButton*>(&control)) {
    option->Value(true);
  } else {
    throw CommandError{control.name() + " cannot be pressed"};
  }
}

void set(Control& control, std::string_view value) {
  expectUsable(control);
  if (auto* text = dynamic_cast<TextBox*>(&control)) {
    if (text->Locked()) throw CommandError{control.name() + " is to read only"};
    text->getFocus();
    text->Text(std::string(value));
    text->loseFocus();
  } else if (auto* box = dynamic_cast<CheckBox*>(&control)) {
    const int wanted = switchValue(value) ? 1 : 0;
    box->getFocus();
    box->Value(wanted);
  } else if (auto* option = dynamic_cast<OptionButton*>(&control)) {
    const bool wanted = switchValue(value);
    option->getFocus();
    option->Value(wanted);
  } else {
    throw CommandError{control.name() + " cannot be set"};
  }
}

void select(Control& control, std::string_view entry) {
  expectUsable(control);
  auto* box = dynamic_cast<ComboBox*>(&control);
  if (!box) throw CommandError{control.name() + " has no entries"};
  const int wanted = itemIndex(*box, entry);
  box->getFocus();
  box->ListIndex(wanted);
}

}  // namespace vorlent
