#pragma once

#include <string>
#include <string_view>

namespace vorlent {

/// The section `[Platform]` of Vorlent.ini; whatever is missing is empty.
struct PlatformSettings {
  std::string ShareRoot;  ///< a folder in which `\\host\share\path` is `host/share/path`
  std::string LocalIp;    ///< the address that counts as the machine's own
};

/// All empty when there is no such file.
PlatformSettings readPlatformSettings(std::string_view iniPath);

}  // namespace vorlent
