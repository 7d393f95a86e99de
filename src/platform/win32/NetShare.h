#pragma once

#include <string>

#include "platform/OwnShare.h"

namespace vorlent {

/// Publishes by Windows' own `NET SHARE`, which needs an administrator's rights.
class NetShare : public OwnShare {
 public:
  /// `netProgram` is looked for in the system folder first.
  explicit NetShare(std::string netProgram = "NET") : netProgram_(std::move(netProgram)) {}

  /// Does not wait for the command. False as well for a folder whose name could not stand in
  /// quotes.
  bool publish(const std::string& shareName, const std::string& folder) override;

 private:
  std::string netProgram_;
};

}  // namespace vorlent
