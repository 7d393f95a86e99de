#include "console/OperatorConsole.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "base/controlProperties.h"
#include "base/controls.h"
#include "base/text.h"
#include "console/operatorHand.h"

namespace vorlent {
namespace {

std::string_view cutWord(std::string_view& line) {
  const auto end = line.find(' ');
  const std::string_view word = line.substr(0, end);
  line.remove_prefix(end == std::string_view::npos ? line.size() : end + 1);
  return word;
}

void expectNothing(std::string_view rest) {
  if (!trimmed(rest).empty()) throw CommandError{"too much: " + std::string(rest)};
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

/// What stands before the first point, which goes with it; the whole name without a point.
std::string_view cutName(std::string_view& name) {
  const auto dot = name.find('.');
  const std::string_view first = name.substr(0, dot);
  name.remove_prefix(dot == std::string_view::npos ? name.size() : dot + 1);
  return first;
}

Control& controlNamed(const Form& form, std::string_view name) {
  Control* control = form.control(name);
  if (!control) throw CommandError{form.name() + " has no control \"" + std::string(name) + "\""};
  return *control;
}

Control& controlNamed(const std::vector<Form*>& forms, std::string_view name) {
  const Form& form = formNamed(forms, cutName(name));
  return controlNamed(form, name);
}

/// A control's content, one of its properties, or one of the form's.
std::string valueNamed(const std::vector<Form*>& forms, std::string_view name) {
  const Form& form = formNamed(forms, cutName(name));
  const std::string_view first = cutName(name);
  if (form.control(first) == nullptr && name.empty())
    if (auto value = propertyOf(form, first)) return *value;
  const Control& control = controlNamed(form, first);
  if (name.empty()) return control.content();
  if (auto value = propertyOf(control, name)) return *value;
  throw CommandError{control.name() + " has no property \"" + std::string(name) + "\""};
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
    Command{"focus", " FORM.CONTROL",
            [](const Forms& forms, std::string_view name, std::string_view rest) -> Answer {
              expectNothing(rest);
              focus(controlNamed(forms, name));
              return {};
            }},
    Command{"key", " FORM.CONTROL CODE SHIFT",
            [](const Forms& forms, std::string_view name, std::string_view rest) -> Answer {
              key(controlNamed(forms, name), rest);
              return {};
            }},
    Command{"drag", " FORM.CONTROL X0 Y0 X1 Y1",
            [](const Forms& forms, std::string_view name, std::string_view rest) -> Answer {
              drag(controlNamed(forms, name), rest);
              return {};
            }},
    Command{"get", " FORM.CONTROL[.PROPERTY]",
            [](const Forms& forms, std::string_view name, std::string_view rest) -> Answer {
              expectNothing(rest);
              return valueNamed(forms, name);
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
