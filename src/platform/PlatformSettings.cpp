#include "platform/PlatformSettings.h"

#include "base/IniDocument.h"
#include "base/RuntimeError.h"
#include "base/files.h"

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

}  // namespace

PlatformSettings readPlatformSettings(std::string_view iniPath) {
  const IniDocument document = documentAt(iniPath);
  return {document.value(Section, "ShareRoot").value_or(""),
          document.value(Section, "LocalIp").value_or("")};
}

}  // namespace vorlent
