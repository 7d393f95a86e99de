#include "replay/ReplayHand.h"

#include <array>
#include <string>

#include "base/controls.h"
#include "base/text.h"
#include "core/Server.h"
#include "core/frmMainClient.h"

namespace vorlent {
namespace {

/// The numbers of a text with blanks between them; 0 for those that are missing.
std::array<double, 4> numbersIn(std::string text) {
  std::array<double, 4> numbers{};
  text += " ";
  for (double& number : numbers)
    if (!text.empty()) number = numeric(GetNext(text, " ")).value_or(0);
  return numbers;
}

Picture::Place placeOf(double x, double y) {
  return {static_cast<float>(x), static_cast<float>(y)};
}

void setValue(Control& control, bool on) {
  if (auto* box = dynamic_cast<CheckBox*>(&control)) box->Value(on ? 1 : 0);
  if (auto* option = dynamic_cast<OptionButton*>(&control)) option->Value(on);
  if (auto* entry = dynamic_cast<MenuItem*>(&control)) entry->Checked(on);
}

void work(Picture& picture, Deed deed, const std::string& value) {
  const auto n = numbersIn(value);
  if (deed == Deed::MouseDown)
    picture.mouseDown(static_cast<int>(n[0]), static_cast<int>(n[1]), placeOf(n[2], n[3]));
  else if (deed == Deed::MouseMove)
    picture.mouseMove(placeOf(n[0], n[1]));
  else
    picture.mouseUp(placeOf(n[0], n[1]));
}

void work(Control& control, Deed deed, const std::string& value) {
  const auto n = numbersIn(value);
  switch (deed) {
    case Deed::Focus:
      return control.getFocus();
    case Deed::Leave:
      return control.loseFocus();
    case Deed::Text:
      if (auto* box = dynamic_cast<TextBox*>(&control)) box->Text(value);
      return;
    case Deed::Value:
      return setValue(control, value == "1");
    case Deed::Choose:
      if (auto* list = dynamic_cast<ComboBox*>(&control)) list->ListIndex(static_cast<int>(n[0]));
      return;
    case Deed::Press:
      if (const auto* button = dynamic_cast<Button*>(&control)) button->press();
      return;
    case Deed::Key:
      return control.keyDown(static_cast<int>(n[0]), static_cast<int>(n[1]));
    default:
      if (auto* picture = dynamic_cast<Picture*>(&control)) work(*picture, deed, value);
  }
}

}  // namespace

ReplayHand::ReplayHand(Server& server)
    : server_(server),
      unread_([](std::string_view) {}),
      console_(unread_, server.lastingForms(), [&server] { return server.sticks.forms(); }) {}

Form* ReplayHand::formNamed(const std::string& name) const {
  for (const auto& forms : {server_.lastingForms(), server_.sticks.forms()})
    for (Form* form : forms)
      if (form->name() == name) return form;
  return nullptr;
}

void ReplayHand::move(const recorded::HandMoved& hand) {
  if (hand.deed == Deed::Line) return console_.execute(hand.value);
  if (hand.deed == Deed::ExitSignal) return server_.mainClient->cmdExit4.press();
  Form* form = formNamed(hand.form);
  if (form == nullptr) return;
  if (hand.deed == Deed::Close) return form->close();
  if (Control* control = form->control(hand.control)) work(*control, hand.deed, hand.value);
}

}  // namespace vorlent
