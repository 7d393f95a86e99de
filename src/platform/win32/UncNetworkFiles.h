#pragma once

#include <string>

#include "platform/NetworkFiles.h"

namespace vorlent {

/// The shares of other machines as Windows itself opens them, as the user who is logged in. A call
/// waits as long as Windows does, and may come from any thread.
class UncNetworkFiles : public NetworkFiles {
 public:
  bool exists(const std::string& path) override;
  /// Into the file that is there. What is cut off in the middle leaves a part of it.
  bool write(const std::string& path, const std::string& content) override;
  bool remove(const std::string& path) override;

 protected:
  NetworkContent readUpTo(const std::string& path, std::size_t limit_bytes) override;
};

}  // namespace vorlent
