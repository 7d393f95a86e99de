#include "console/ConsoleOperator.h"

#include <string>

#include "base/controls.h"

namespace vorlent {
namespace {

const char* iconName(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Critical:
      return "critical";
    case BoxIcon::Exclamation:
      return "exclamation";
    case BoxIcon::Plain:
      break;
  }
  return "plain";
}

}  // namespace

void ConsoleOperator::messageBox(const std::string& text, BoxIcon icon, const std::string& title) {
  output_.line(std::string("box ") + iconName(icon) + " \"" + title + "\": " + text);
}

void ConsoleOperator::pointer(Pointer) {}

void ConsoleOperator::showForm(Form& form, Modality) {
  follow(form);
  form.Visible(true);
}

void ConsoleOperator::hideForm(Form& form) { form.Visible(false); }

void ConsoleOperator::follow(Form& form) {
  if (!followed_.insert(&form).second) return;
  form.Visible.addView([this, &form] { tell(form); });
  if (form.Visible()) tell(form);
}

void ConsoleOperator::tell(const Form& form) {
  output_.line((form.Visible() ? "show " : "hide ") + form.name());
}

}  // namespace vorlent
