#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vorlent {

/// The section `[Platform]` of Vorlent.ini; whatever is missing is empty or false.
struct PlatformSettings {
  /// A folder in which `\\host\share\path` is `host/share/path`; in the file it may be relative to
  /// the file's own folder.
  std::string ShareRoot;
  std::string LocalIp;  ///< the address that counts as the machine's own
  /// Who may greet and command: addresses and networks, comma separated; empty lets in the networks
  /// that the machine is directly attached to, and loopback.
  std::string ClientNetworks;
  bool NetworkKeys = false;        ///< clients may send keystroke codes
  bool SouthernLatitudes = false;  ///< the latitude's fold that is right south of the equator
};

/// All empty when there is no such file.
PlatformSettings readPlatformSettings(std::string_view iniPath);
/// What of the section cannot be used, and what counts in its place: a sentence each.
std::vector<std::string> platformSettingFaults(std::string_view iniPath);

}  // namespace vorlent
