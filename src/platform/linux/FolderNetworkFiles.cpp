#include "platform/linux/FolderNetworkFiles.h"

#include <string_view>
#include <utility>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "base/text.h"

namespace vorlent {
namespace {

constexpr std::string_view Separators = "\\/";

/// A name that stays in its folder.
bool isPlainName(std::string_view name) {
  return name != "." && name != ".." && name.find('\0') == std::string_view::npos;
}

std::string_view cutPart(std::string_view& path) {
  const auto end = path.find_first_of(Separators);
  const std::string_view part = path.substr(0, end);
  path.remove_prefix(end == std::string_view::npos ? path.size() : end + 1);
  return part;
}

template <class Work>
bool succeeds(const Work& work) {
  try {
    work();
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace

bool FolderNetworkFiles::exists(const std::string& path) {
  const auto local = localPath(path);
  return local && (fileExists(*local) || folderExists(*local));
}

bool FolderNetworkFiles::write(const std::string& path, const std::string& content) {
  const auto local = localPath(path);
  return local && succeeds([&] { replaceFile(*local, content); });
}

bool FolderNetworkFiles::remove(const std::string& path) {
  const auto local = localPath(path);
  return local && fileExists(*local) && succeeds([&] { deleteFile(*local); });
}

NetworkContent FolderNetworkFiles::readUpTo(const std::string& path, std::size_t limit_bytes) {
  const auto local = localPath(path);
  std::optional<std::string> content;
  if (!local || !succeeds([&] { content = readFileUpTo(*local, limit_bytes); })) return {};
  return content ? NetworkContent(*std::move(content)) : NetworkContent::ofTooLargeFile();
}

std::optional<std::string> FolderNetworkFiles::localPath(const std::string& networkPath) const {
  std::string_view rest = networkPath;
  if (shareRoot_.empty() || !cutPart(rest).empty() || !cutPart(rest).empty()) return std::nullopt;
  const std::string_view host = cutPart(rest);
  if (!isHostName(host) || rest.find_first_not_of(Separators) == std::string_view::npos)
    return std::nullopt;
  std::string path = joinedPath(shareRoot_, host);
  while (!rest.empty()) {
    const std::string_view name = cutPart(rest);
    if (!isPlainName(name)) return std::nullopt;
    if (!name.empty()) path = joinedPath(path, name);
  }
  return path;
}

}  // namespace vorlent
