#pragma once

#include <filesystem>
#include <set>
#include <string>

namespace vorlent {

/// Of what lies in a folder.
inline std::set<std::string> namesIn(const std::string& folder) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    names.insert(entry.path().filename().string());
  return names;
}

}  // namespace vorlent
