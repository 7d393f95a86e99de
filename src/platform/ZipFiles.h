#pragma once

#include <functional>
#include <string>

namespace vorlent {

/// Folders in zip files. The work goes on beside the server's.
class ZipFiles {
 public:
  /// Gets what went wrong, in a sentence; empty when nothing did.
  using Done = std::function<void(const std::string& fault)>;

  virtual ~ZipFiles() = default;
  /// Everything in `folder` becomes the zip file `zip`, which is not there yet.
  virtual void pack(const std::string& folder, const std::string& zip, Done done) = 0;
  /// `folder` is made, with what is in `zip`. Files that would lie outside it are a fault.
  virtual void unpack(const std::string& zip, const std::string& folder, Done done) = 0;
};

}  // namespace vorlent
