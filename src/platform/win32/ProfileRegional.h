#pragma once

#include "platform/Regional.h"

namespace vorlent {

/// The user's regional settings in the Windows profile.
class ProfileRegional : public Regional {
 public:
  std::string decimalSeparator() override;
};

}  // namespace vorlent
