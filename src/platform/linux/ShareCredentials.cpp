#include "platform/linux/ShareCredentials.h"

#include <sys/stat.h>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "base/text.h"

namespace vorlent {
namespace {

constexpr std::size_t MostOfTheFile_bytes = 64 << 10;

[[noreturn]] void refuse(const std::string& path, const std::string& reason) {
  throw RuntimeError(RuntimeError::PathAccess,
                     "ShareCredentials: " + nativePath(path) + " " + reason);
}

std::string* valueFor(ShareCredentials& credentials, const std::string& key) {
  if (equalIgnoringCase(key, "user")) return &credentials.user;
  if (equalIgnoringCase(key, "password")) return &credentials.password;
  if (equalIgnoringCase(key, "domain")) return &credentials.domain;
  return nullptr;
}

void parseLine(std::string_view line, ShareCredentials& credentials, const std::string& path) {
  const std::string text = trimmed(line);
  if (text.empty() || text.starts_with('#')) return;
  const auto mark = text.find('=');
  std::string* const value =
      mark == std::string::npos ? nullptr : valueFor(credentials, trimmed(text.substr(0, mark)));
  if (value == nullptr)
    refuse(path, "has a line that is none of user = , password = and domain = ");
  *value = trimmed(text.substr(mark + 1));
}

}  // namespace

ShareCredentials parseShareCredentials(std::string_view text, const std::string& path) {
  ShareCredentials credentials;
  while (!text.empty()) {
    const auto end = text.find('\n');
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    parseLine(line, credentials, path);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  if (credentials.user.empty()) refuse(path, "names no user");
  return credentials;
}

ShareCredentials readShareCredentials(const std::string& path) {
  if (path.empty()) return {};
  struct stat found {};
  if (stat(nativePath(path).c_str(), &found) != 0) refuse(path, "is not there");
  constexpr mode_t Others = S_IRWXG | S_IRWXO;
  if ((found.st_mode & Others) != 0)
    refuse(path, "can be read by others than its owner; chmod 600 lets nobody else");
  std::optional<std::string> text;
  try {
    text = readFileUpTo(path, MostOfTheFile_bytes);
  } catch (const RuntimeError&) {
    refuse(path, "cannot be read");
  }
  if (!text) refuse(path, "is too large");
  return parseShareCredentials(*text, path);
}

}  // namespace vorlent
