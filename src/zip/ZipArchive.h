#pragma once

#include <string>

namespace vorlent {

/// What a zip file may be at most: more than the folder of an aircraft will ever be.
struct ZipLimits {
  int entries = 2000;
  long long bytes = 1LL << 30;  ///< of all files together, unpacked
};

/// Writes all files below `folder` into the new zip file `zip`, by their paths from it. Links and
/// what is no file are left out. Raises std::runtime_error, with the reason in a sentence, and
/// leaves no `zip` then.
void packFolder(const std::string& folder, const std::string& zip, const ZipLimits& limits = {});

/// Makes `folder`, which is not there yet, with the files of `zip`. Raises std::runtime_error, with
/// the reason in a sentence, for what is no zip file, is larger than the limits, or has an entry
/// that is not a file or a folder inside: then `folder` is not there.
void unpackZip(const std::string& zip, const std::string& folder, const ZipLimits& limits = {});

}  // namespace vorlent
