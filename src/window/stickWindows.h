#pragma once

#include <QDialog>
#include <memory>

#include "window/Binder.h"

namespace vorlent {

/// Makes the window of a stick, of its extra buttons, or of the curve's editor; null for any other
/// form.
std::unique_ptr<QDialog> makeStickWindow(Form& form, const Guard& guard);

}  // namespace vorlent
