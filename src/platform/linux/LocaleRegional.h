#pragma once

#include "platform/Regional.h"

namespace vorlent {

/// The user's locale: LC_ALL, else LC_NUMERIC, else LANG. None of them, or one that is not
/// installed, gives a point. The process's own locale stays as it is.
class LocaleRegional : public Regional {
 public:
  std::string decimalSeparator() override;
};

}  // namespace vorlent
