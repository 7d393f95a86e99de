#include "platform/PlatformSettings.h"

#include <algorithm>
#include <array>

#include "base/IniDocument.h"
#include "base/RuntimeError.h"
#include "base/files.h"
#include "base/text.h"
#include "platform/AddressRanges.h"

namespace vorlent {
namespace {

constexpr std::string_view Section = "Platform";

constexpr std::array Keys = {"ShareRoot",   "LocalIp",           "ClientNetworks",
                             "NetworkKeys", "SouthernLatitudes", "Glideslope",
                             "CycleTime",   "ShareCredentials",  "SharePort",
                             "Recorder",    "RecorderSize_MB"};

bool isKey(const std::string& name) {
  return std::any_of(Keys.begin(), Keys.end(),
                     [&name](const char* key) { return equalIgnoringCase(key, name); });
}

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

bool isFlag(const std::string& text) {
  return equalIgnoringCase(text, "True") || equalIgnoringCase(text, "False");
}

bool isTrue(const std::string& text) { return equalIgnoringCase(trimmed(text), "True"); }

struct Range {
  int lowest;
  int highest;
};
constexpr Range CycleTime_ms{100, 2000};
constexpr Range Port{1, 65535};
constexpr Range RecorderSize_MB{10, 1'000'000};

bool isWithin(const Range& range, const std::string& text) {
  const auto number = numeric(text);
  return number && *number >= range.lowest && *number <= range.highest;
}

int numberIn(const Range& range, const std::string& text, int otherwise) {
  return isWithin(range, text) ? static_cast<int>(*numeric(text)) : otherwise;
}

/// The section's lines whose key is none, as a misspelt one.
std::vector<std::string> unknownKeys(const IniDocument& document) {
  std::vector<std::string> faults;
  std::string lines = document.sectionText(Section);
  while (!lines.empty()) {
    const std::string line = lines.substr(0, lines.find('\0'));
    lines.erase(0, line.size() + 1);
    const auto equals = line.find('=');
    if (equals != std::string::npos && !isKey(line.substr(0, equals)))
      faults.push_back("Vorlent.ini, [Platform], " + line + ": there is no such key");
  }
  return faults;
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
  settings.ShareCredentials = besideOf(iniPath, text("ShareCredentials"));
  settings.SharePort = static_cast<std::uint16_t>(numberIn(Port, trimmed(text("SharePort")), 0));
  settings.CycleTime = numberIn(CycleTime_ms, trimmed(text("CycleTime")), settings.CycleTime);
  settings.Recorder = besideOf(iniPath, trimmed(text("Recorder")));
  settings.RecorderSize_MB =
      numberIn(RecorderSize_MB, trimmed(text("RecorderSize_MB")), settings.RecorderSize_MB);
  return settings;
}

std::vector<std::string> platformSettingFaults(std::string_view iniPath) {
  const IniDocument document = documentAt(iniPath);
  std::vector<std::string> faults = unknownKeys(document);
  const auto check = [&](const char* key, const auto& isUsable, const std::string& remedy) {
    const std::string text = trimmed(document.value(Section, key).value_or(""));
    if (!text.empty() && !isUsable(text))
      faults.push_back("Vorlent.ini, [Platform], " + std::string(key) + "=" + text + ": " + remedy);
  };
  const auto isFolder = [&](const std::string& text) {
    return folderExists(besideOf(iniPath, text));
  };
  const auto isAddress = [](const std::string& text) { return AddressRanges().add(text + "/32"); };
  check("ShareRoot", isFolder, "there is no such folder, so no share is there");
  check("LocalIp", isAddress, "this is no address such as 192.168.0.10");
  for (const char* key : {"NetworkKeys", "SouthernLatitudes", "Glideslope"})
    check(key, isFlag, "only True switches it on, so it is off");
  const auto isCycleTime = [](const std::string& text) { return isWithin(CycleTime_ms, text); };
  const auto isPort = [](const std::string& text) { return isWithin(Port, text); };
  check("CycleTime", isCycleTime, "this is no time of 100 to 2000 ms, so it is 400");
  check("SharePort", isPort, "this is no port, so it is the usual one");
  const auto isRecorderSize = [](const std::string& text) {
    return isWithin(RecorderSize_MB, text);
  };
  check("RecorderSize_MB", isRecorderSize, "this is no size of 10 to 1000000 MB, so it is 2048");
  return faults;
}

}  // namespace vorlent
