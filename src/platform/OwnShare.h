#pragma once

#include <string>

namespace vorlent {

class OwnShare {
 public:
  virtual ~OwnShare() = default;
  /// Publishes a folder of this machine for reading. False when there was no command to run.
  virtual bool publish(const std::string& shareName, const std::string& folder) = 0;
};

}  // namespace vorlent
