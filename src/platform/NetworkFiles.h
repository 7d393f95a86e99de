#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace vorlent {

/// A file's content, or nothing when it is not there or is too large.
struct NetworkContent : std::optional<std::string> {
  using std::optional<std::string>::optional;

  static NetworkContent ofTooLargeFile() {
    NetworkContent none;
    none.tooLarge = true;
    return none;
  }

  bool tooLarge = false;
};

/// Files of other machines, by `\\host\share\path`. Whatever does not answer costs at most a
/// deadline and then counts as not there.
class NetworkFiles {
 public:
  static constexpr std::size_t MostOfAFile_bytes = 1 << 20;
  static constexpr std::size_t MostOfAPlan_bytes = 16 << 20;

  virtual ~NetworkFiles() = default;
  /// A file or a folder.
  virtual bool exists(const std::string& path) = 0;
  /// No more than the limit is ever read: nothing of a larger file, which is then told apart.
  NetworkContent read(const std::string& path, std::size_t limit_bytes = MostOfAFile_bytes) {
    return readUpTo(path, limit_bytes);
  }
  virtual bool write(const std::string& path, const std::string& content) = 0;
  virtual bool remove(const std::string& path) = 0;

 protected:
  virtual NetworkContent readUpTo(const std::string& path, std::size_t limit_bytes) = 0;
};

}  // namespace vorlent
