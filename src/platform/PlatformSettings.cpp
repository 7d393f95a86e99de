#include "platform/PlatformSettings.h"

#include <charconv>

#include "base/IniDocument.h"
#include "base/RuntimeError.h"
#include "base/files.h"
#include "base/text.h"

namespace vorlent {
namespace {

constexpr std::string_view Section = "Platform";

/// A file that cannot be read is told by the start-up, which reads it again.
IniDocument documentAt(std::string_view path) {
  try {
    return IniDocument(readFile(path));
  } catch (const RuntimeError&) {
    return IniDocument();
  }
}

/// A relative folder lies beside the file that names it.
std::string besideOf(std::string_view iniPath, const std::string& folder) {
  const bool fromRoot = folder.starts_with('/') || folder.starts_with('\\');
  const bool fromDrive = folder.size() > 1 && folder[1] == ':';
  return folder.empty() || fromRoot || fromDrive ? folder : joinedPath(folderOf(iniPath), folder);
}

bool isTrue(const std::string& text) { return equalIgnoringCase(trimmed(text), "True"); }

std::uint16_t portOf(const std::string& text) {
  std::uint16_t port = 0;
  std::from_chars(text.data(), text.data() + text.size(), port);
  return port;
}

}  // namespace

PlatformSettings readPlatformSettings(std::string_view iniPath) {
  const IniDocument document = documentAt(iniPath);
  const auto text = [&document](std::string_view key) {
    return document.value(Section, key).value_or("");
  };
  return {besideOf(iniPath, text("ShareRoot")),
          besideOf(iniPath, text("ShareCredentials")),
          portOf(text("SharePort")),
          text("LocalIp"),
          text("ClientNetworks"),
          isTrue(text("NetworkKeys")),
          isTrue(text("SouthernLatitudes"))};
}

}  // namespace vorlent
