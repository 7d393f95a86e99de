#pragma once

#include <set>

#include "console/ConsoleOutput.h"
#include "platform/Operator.h"

namespace vorlent {

/// An operator who reads lines: `box critical "Title": text` (or `exclamation`, `plain`) for a
/// message box, which counts as acknowledged at once, and `show FrmTip` and `hide FrmTip` for a
/// form that comes into sight and goes, whoever does it. A modal form does not stop the server.
///
/// A form that has been shown lives as long as its operator is used.
class ConsoleOperator : public Operator {
 public:
  explicit ConsoleOperator(ConsoleOutput& output) : output_(output) {}

  void messageBox(const std::string& text, BoxIcon icon, const std::string& title) override;
  /// A console has no pointer.
  void pointer(Pointer shape) override;
  /// Returns at once, for a modal form too.
  void showForm(Form& form, Modality modality) override;
  void hideForm(Form& form) override;

 private:
  void follow(Form& form);
  void tell(const Form& form);

  ConsoleOutput& output_;
  std::set<const Form*> followed_;
};

}  // namespace vorlent
