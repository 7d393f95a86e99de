#include "console/OperatorConsole.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "base/controls.h"
#include "base/text.h"

namespace vorlent {
namespace {

/// What the answer says behind "error: ".
struct CommandError {
  std::string what;
};

std::string_view cutWord(std::string_view& line) {
  const auto end = line.find(' ');
  const std::string_view word = line.substr(0, end);
  line.remove_prefix(end == std::string_view::npos ? line.size() : end + 1);
  return word;
}

void expectNothing(std::string_view rest) {
  if (!trimmed(rest).empty()) throw CommandError{"too much: " + std::string(rest)};
}

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

void press(Control& control) {
  expectUsable(control);
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
    text->Text(std::string(value));
    text->loseFocus();
  } else if (auto* box = dynamic_cast<CheckBox*>(&control)) {
    box->Value(switchValue(value) ? 1 : 0);
  } else if (auto* option = dynamic_cast<OptionButton*>(&control)) {
    option->Value(switchValue(value));
  } else {
    throw CommandError{control.name() + " cannot be set"};
  }
}

void select(Control& control, std::string_view entry) {
  expectUsable(control);
  auto* box = dynamic_cast<ComboBox*>(&control);
  if (!box) throw CommandError{control.name() + " has no entries"};
  box->ListIndex(itemIndex(*box, entry));
}

std::string controlNames(const Form& form) {
  std::string names;
  for (const Control* control : form.controls())
    names += (names.empty() ? "" : " ") + control->name();
  return names;
}

void close(Form& form) {
  if (!form.Visible()) throw CommandError{form.name() + " is not visible"};
  form.close();
}

Form& formNamed(const std::vector<Form*>& forms, std::string_view name) {
  const auto found = std::find_if(forms.begin(), forms.end(), [name](const Form* form) {
    return equalIgnoringCase(form->name(), name);
  });
  if (found == forms.end()) throw CommandError{"no form \"" + std::string(name) + "\""};
  return **found;
}

Control& controlNamed(const std::vector<Form*>& forms, std::string_view name) {
  const auto dot = name.find('.');
  const Form& form = formNamed(forms, name.substr(0, dot));
  const auto controlName =
      dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
  Control* control = form.control(controlName);
  if (!control)
    throw CommandError{form.name() + " has no control \"" + std::string(controlName) + "\""};
  return *control;
}

using Forms = std::vector<Form*>;
/// The value to answer with, if the command has one.
using Answer = std::optional<std::string>;

/// What the window would mark the box for.
Answer complaintOf(const Control& control) {
  const auto* box = dynamic_cast<const TextBox*>(&control);
  if (!box || box->Complaint().empty()) return {};
  return box->Complaint();
}

struct Command {
  std::string_view verb;
  std::string_view operands;  ///< as `help` tells them
  Answer (*carryOut)(const Forms& forms, std::string_view name, std::string_view rest);
};

Answer help(const Forms& forms, std::string_view name, std::string_view rest);

constexpr std::array Commands{
    Command{"press", " FORM.CONTROL",
            [](const Forms& forms, std::string_view name, std::string_view rest) -> Answer {
              expectNothing(rest);
              press(controlNamed(forms, name));
              return {};
            }},
    Command{"set", " FORM.CONTROL VALUE",
            [](const Forms& forms, std::string_view name, std::string_view rest) -> Answer {
              Control& control = controlNamed(forms, name);
              set(control, rest);
              return complaintOf(control);
            }},
    Command{"select", " FORM.CONTROL ENTRY",
            [](const Forms& forms, std::string_view name, std::string_view rest) -> Answer {
              select(controlNamed(forms, name), rest);
              return {};
            }},
    Command{"get", " FORM.CONTROL",
            [](const Forms& forms, std::string_view name, std::string_view rest) -> Answer {
              expectNothing(rest);
              return controlNamed(forms, name).content();
            }},
    Command{"list", " FORM",
            [](const Forms& forms, std::string_view name, std::string_view rest) -> Answer {
              expectNothing(rest);
              return controlNames(formNamed(forms, name));
            }},
    Command{"close", " FORM",
            [](const Forms& forms, std::string_view name, std::string_view rest) -> Answer {
              expectNothing(rest);
              close(formNamed(forms, name));
              return {};
            }},
    Command{"exit", "",
            [](const Forms& forms, std::string_view name, std::string_view) -> Answer {
              expectNothing(name);
              press(controlNamed(forms, "frmMainClient.cmdExit4"));
              return {};
            }},
    Command{"help", "", help},
};

Answer help(const Forms&, std::string_view name, std::string_view) {
  expectNothing(name);
  std::string all;
  for (const auto& command : Commands)
    all += (all.empty() ? "" : ", ") + std::string(command.verb) + std::string(command.operands);
  return all;
}

Answer carryOut(const Forms& forms, std::string_view line) {
  const std::string_view verb = cutWord(line);
  const std::string_view name = cutWord(line);
  for (const auto& command : Commands)
    if (command.verb == verb) return command.carryOut(forms, name, line);
  throw CommandError{"no command \"" + std::string(verb) + "\""};
}

}  // namespace

OperatorConsole::OperatorConsole(ConsoleOutput& output, std::vector<Form*> forms, FormsNow others)
    : output_(output), forms_(std::move(forms)), others_(std::move(others)) {
  for (const Form* form : forms_) tellStatusPanels(*form);
}

void OperatorConsole::execute(std::string_view commandLine) {
  try {
    const auto value = carryOut(formsNow(), commandLine);
    output_.line(value ? "= " + *value : "=");
  } catch (const CommandError& error) {
    output_.line("error: " + error.what);
  } catch (...) {
    output_.line("=");
    throw;
  }
}

std::vector<Form*> OperatorConsole::formsNow() const {
  std::vector<Form*> all = forms_;
  if (others_)
    for (Form* form : others_()) all.push_back(form);
  return all;
}

void OperatorConsole::tellStatusPanels(const Form& form) {
  for (Control* control : form.controls())
    if (auto* bar = dynamic_cast<StatusBar*>(control))
      bar->addView([&output = output_, bar](int panel) {
        output.line(std::to_string(panel) + "| " + bar->panelText(panel));
      });
}

}  // namespace vorlent
