#pragma once

#include <string>

#include "platform/OwnShare.h"

namespace vorlent {

/// Publishes through Samba, by `net usershare`, which an ordinary user may run.
class UserShare : public OwnShare {
 public:
  /// Each run of `netProgram`, a path or a name that is looked for in PATH, may take
  /// `deadline_ms`; then it is killed.
  explicit UserShare(std::string netProgram = "net", int deadline_ms = 3000)
      : netProgram_(std::move(netProgram)), deadline_ms_(deadline_ms) {}

  /// False as well when the folder already has this name, since nothing was run to change it.
  bool publish(const std::string& shareName, const std::string& folder) override;

 private:
  std::string netProgram_;
  int deadline_ms_;
};

}  // namespace vorlent
