#pragma once

#include <optional>
#include <string>

#include "platform/NetworkFiles.h"

namespace vorlent {

/// A folder stands for the network: `\\host\share\path` is `host/share/path` in it, in any case of
/// letters. No path leads out of it (but a symbolic link that somebody put there does). Without a
/// folder nothing is there.
class FolderNetworkFiles : public NetworkFiles {
 public:
  explicit FolderNetworkFiles(std::string shareRoot) : shareRoot_(std::move(shareRoot)) {}

  bool exists(const std::string& path) override;
  bool write(const std::string& path, const std::string& content) override;
  bool remove(const std::string& path) override;

 protected:
  NetworkContent readUpTo(const std::string& path, std::size_t limit_bytes) override;

 private:
  /// Nothing for a path that is not on the network, a host without a share included.
  std::optional<std::string> localPath(const std::string& networkPath) const;

  std::string shareRoot_;
};

}  // namespace vorlent
