#include "platform/PlatformSettings.h"

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

constexpr double ShortestCycle_ms = 100;
constexpr double LongestCycle_ms = 2000;

void takeCycleTime(const std::string& text, PlatformSettings& settings) {
  if (text.empty()) return;
  const auto time_ms = numeric(text);
  if (time_ms >= ShortestCycle_ms && time_ms <= LongestCycle_ms)
    settings.CycleTime = static_cast<int>(*time_ms);
  else
    settings.fault = "Vorlent.ini, [Platform], CycleTime: \"" + text +
                     "\" is no time of 100 to 2000 ms; it is " + std::to_string(settings.CycleTime);
}

}  // namespace

PlatformSettings readPlatformSettings(std::string_view iniPath) {
  const IniDocument document = documentAt(iniPath);
  const auto text = [&document](std::string_view key) {
    return document.value(Section, key).value_or("");
  };
  PlatformSettings settings{besideOf(iniPath, text("ShareRoot")), text("LocalIp"),
                            text("ClientNetworks"), isTrue(text("NetworkKeys")),
                            isTrue(text("SouthernLatitudes"))};
  settings.Glideslope = isTrue(text("Glideslope"));
  takeCycleTime(trimmed(text("CycleTime")), settings);
  return settings;
}

}  // namespace vorlent
