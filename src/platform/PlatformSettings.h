#pragma once

#include <string>
#include <string_view>

namespace vorlent {

/// The section `[Platform]` of Vorlent.ini; whatever is missing is empty.
struct PlatformSettings {
  /// A folder in which `\\host\share\path` is `host/share/path`; in the file it may be relative to
  /// the file's own folder.
  std::string ShareRoot;
  std::string LocalIp;  ///< the address that counts as the machine's own
};

/// All empty when there is no such file.
PlatformSettings readPlatformSettings(std::string_view iniPath);

}  // namespace vorlent
