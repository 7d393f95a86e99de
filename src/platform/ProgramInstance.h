#pragma once

#include <string>

namespace vorlent {

class ProgramInstance {
 public:
  virtual ~ProgramInstance() = default;
  /// False when another server runs from this folder. The claim goes with the process.
  virtual bool claim(const std::string& programFolder) = 0;
};

}  // namespace vorlent
