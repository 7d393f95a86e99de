#pragma once

#include "platform/ProgramInstance.h"
#include "platform/linux/Descriptor.h"

namespace vorlent {

/// The claim is a lock on the folder itself: no file is left behind, and it goes with the process
/// however that ends.
class FolderLock : public ProgramInstance {
 public:
  /// A folder that cannot be locked at all counts as free. A former claim is given up.
  bool claim(const std::string& programFolder) override;

 private:
  Descriptor folder_;
};

}  // namespace vorlent
