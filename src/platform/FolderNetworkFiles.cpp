#include "platform/FolderNetworkFiles.h"

#include <utility>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "platform/NetworkPath.h"

namespace vorlent {
namespace {

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
  const auto network = networkPathOf(networkPath);
  if (shareRoot_.empty() || !network) return std::nullopt;
  std::string path = joinedPath(shareRoot_, network->host);
  for (const std::string& name : network->names) path = joinedPath(path, name);
  return path;
}

}  // namespace vorlent
