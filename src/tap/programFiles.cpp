#include "tap/programFiles.h"

#include <algorithm>
#include <array>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "base/folders.h"
#include "base/text.h"

namespace vorlent {

using namespace recorded;

namespace {

constexpr std::size_t MostOfAFile_bytes = 1U << 20;
constexpr int DeepestFolder = 4;

bool endsWith(const std::string& name, std::string_view end) {
  return name.size() >= end.size() &&
         equalIgnoringCase(std::string_view(name).substr(name.size() - end.size()), end);
}

/// By their names: what else lies there, a file with passwords perhaps, is nobody's business.
constexpr std::array Settings{"Vorlent.ini", "Offsets.ini", "anasort.txt",
                              "butsort.txt", "encoder.txt", "togsort.txt"};

bool isSetting(const std::string& name) {
  return std::any_of(Settings.begin(), Settings.end(),
                     [&name](const char* setting) { return equalIgnoringCase(name, setting); });
}

/// One that cannot be read now is told without content: the server will say so.
FileKept kept(const std::string& folder, const std::string& path) {
  const std::string place = joinedPath(folder, path);
  FileKept file{path, fileSize(place), false, {}};
  if (endsWith(path, ".wav") || endsWith(path, ".mdb")) return file;
  try {
    const auto content = readFileUpTo(place, MostOfAFile_bytes);
    file.kept = content.has_value();
    file.content = content.value_or("");
  } catch (const RuntimeError&) {
    file.kept = false;
  }
  return file;
}

void addFolder(std::vector<FileKept>& files, const std::string& programFolder,
               const std::string& path, int depth) {
  const std::string place = joinedPath(programFolder, path);
  const auto inside = [&path](const std::string& name) {
    return std::string(path).append("/").append(name);
  };
  for (const std::string& name : filesIn(place)) files.push_back(kept(programFolder, inside(name)));
  if (depth == DeepestFolder) return;
  for (const std::string& name : subFolders(place))
    addFolder(files, programFolder, inside(name), depth + 1);
}

}  // namespace

std::vector<FileKept> programFiles(const std::string& programFolder) {
  std::vector<FileKept> files;
  for (const std::string& name : filesIn(programFolder))
    if (isSetting(name)) files.push_back(kept(programFolder, name));
  for (const std::string folder : {"Cockpits", "Templates"})
    if (folderExists(joinedPath(programFolder, folder))) addFolder(files, programFolder, folder, 1);
  return files;
}

}  // namespace vorlent
