#include "window/FormDialog.h"

namespace vorlent {

FormDialog::FormDialog(Form& form, const Guard& guard) : form_(form), guard_(guard) {
  setObjectName(QString::fromStdString(form.name()));
  follow(form.Caption, *this, [](FormDialog& window, const std::string& caption) {
    window.setWindowTitle(QString::fromStdString(caption));
  });
}

void FormDialog::reject() noexcept {
  guard_([this] { form_.close(); });
}

}  // namespace vorlent
