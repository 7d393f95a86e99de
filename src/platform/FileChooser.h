#pragma once

#include <optional>
#include <string>
#include <vector>

namespace vorlent {

/// How the operator points at a place on his disks. Nothing is given where he changes his mind, or
/// where he can only type.
class FileChooser {
 public:
  virtual ~FileChooser() = default;
  /// The system's drives, as "C:"; none where it has no such thing.
  virtual std::vector<std::string> drives() = 0;
  virtual std::optional<std::string> folder(const std::string& start) = 0;
  /// A zip file that is there.
  virtual std::optional<std::string> zipToRead(const std::string& start) = 0;
  /// A zip file that is to be made.
  virtual std::optional<std::string> zipToMake(const std::string& suggested) = 0;
};

}  // namespace vorlent
