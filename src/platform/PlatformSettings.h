#pragma once

#include <string>
#include <string_view>

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
  bool Glideslope = false;         ///< the autopilot flies the glide path of an ILS
  int CycleTime = 400;             ///< of the autoflight, ms
  /// What is wrong with a key, empty when nothing is; its default stands then.
  std::string fault{};
};

/// As without any key when there is no such file.
PlatformSettings readPlatformSettings(std::string_view iniPath);

}  // namespace vorlent
