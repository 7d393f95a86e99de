#include "platform/linux/StickSockets.h"

#include <dirent.h>

#include <algorithm>
#include <memory>
#include <string_view>

#include "platform/ConnectionOrder.h"
#include "platform/StickDevice.h"

namespace vorlent {
namespace {

constexpr std::string_view Prefix = "stick.";

}  // namespace

std::string stickSocketName(const std::string& stickName) {
  return std::string(Prefix) + stickName;
}

std::vector<std::string> stickNames(const std::string& folder) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
  while (const dirent* entry = entries ? readdir(entries.get()) : nullptr) {
    const std::string_view file = entry->d_name;
    if (file.starts_with(Prefix) && isStickName(file.substr(Prefix.size())))
      names.emplace_back(file.substr(Prefix.size()));
  }
  std::sort(names.begin(), names.end(), comesBefore);
  return names;
}

}  // namespace vorlent
