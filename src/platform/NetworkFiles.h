#pragma once

#include <optional>
#include <string>

namespace vorlent {

/// Files of other machines, by `\\host\share\path`. Whatever does not answer costs at most a
/// deadline and then counts as not there.
class NetworkFiles {
 public:
  virtual ~NetworkFiles() = default;
  /// A file or a folder.
  virtual bool exists(const std::string& path) = 0;
  virtual std::optional<std::string> read(const std::string& path) = 0;
  virtual bool write(const std::string& path, const std::string& content) = 0;
  virtual bool remove(const std::string& path) = 0;
};

}  // namespace vorlent
