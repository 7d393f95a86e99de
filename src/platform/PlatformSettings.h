#pragma once

#include <cstdint>
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
  bool Glideslope = false;         ///< the autopilot flies the glide path of an ILS
  int CycleTime = 400;             ///< of the autoflight, 100 to 2000 ms
  /// A file that tells who asks for the files of other machines; empty asks as nobody in
  /// particular. In the file it may be relative, as ShareRoot.
  std::string ShareCredentials{};
  /// Of TCP, on which other machines serve their shares; 0: the usual.
  std::uint16_t SharePort = 0;
  /// The folder of recordings; empty: nothing is recorded. In the file it may be relative, as
  /// ShareRoot.
  std::string Recorder{};
  int RecorderSize_MB = 2048;  ///< how much may lie there, 10 to 1000000
};

/// As without any key when there is no such file.
PlatformSettings readPlatformSettings(std::string_view iniPath);
/// What of the section cannot be used, and what counts in its place: a sentence each.
std::vector<std::string> platformSettingFaults(std::string_view iniPath);

}  // namespace vorlent
