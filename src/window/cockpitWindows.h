#pragma once

#include <memory>

#include "window/FormDialog.h"

namespace vorlent {

class frmDir;
class frmNew;
class frmSave;
class frmZip;

// The windows of the forms for the cockpits' folders.

std::unique_ptr<FormDialog> newWindow(frmNew& form, const Guard& guard);
std::unique_ptr<FormDialog> saveWindow(frmSave& form, const Guard& guard);
std::unique_ptr<FormDialog> importWindow(frmDir& form, const Guard& guard);
std::unique_ptr<FormDialog> zipWindow(frmZip& form, const Guard& guard);

}  // namespace vorlent
