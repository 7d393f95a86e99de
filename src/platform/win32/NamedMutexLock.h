#pragma once

#include <cstdint>
#include <memory>

#include "platform/ProgramInstance.h"

namespace vorlent {

/// The claim is a named mutex of the whole machine: no file is left behind, and it goes with the
/// process however that ends. Spellings of one folder that differ in letter case, short names or
/// links name one mutex.
class NamedMutexLock : public ProgramInstance {
 public:
  /// A folder that cannot be opened, or whose mutex cannot be made, counts as free. A former claim
  /// is given up.
  bool claim(const std::string& programFolder) override;

 private:
  struct Close {
    void operator()(void* handle) const;
  };
  std::unique_ptr<void, Close> mutex_;
};

}  // namespace vorlent
