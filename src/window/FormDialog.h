#pragma once

#include <QDialog>

#include "window/Binder.h"

namespace vorlent {

/// A window of a form: its title is the form's caption, Escape and the close box are the form's.
class FormDialog : public QDialog {
 public:
  FormDialog(Form& form, const Guard& guard);

  void reject() noexcept override;

 private:
  Form& form_;
  Guard guard_;
};

}  // namespace vorlent
