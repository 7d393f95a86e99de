#include "platform/linux/ShippedDocuments.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <string_view>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "platform/linux/WholeFile.h"

namespace vorlent {
namespace fs = std::filesystem;
namespace {

/// Of each document, by its name, what it was when it was copied.
using Marks = std::map<std::string, std::uint64_t>;

/// FNV-1a of 64 bits (Fowler, Noll and Vo).
std::uint64_t markOf(std::string_view content) {
  constexpr std::uint64_t Basis = 0xcbf29ce484222325;
  constexpr std::uint64_t Prime = 0x100000001b3;
  std::uint64_t mark = Basis;
  for (const char letter : content) mark = (mark ^ static_cast<unsigned char>(letter)) * Prime;
  return mark;
}

Marks readMarks(const fs::path& record) {
  Marks marks;
  std::ifstream lines(record);
  std::string name;
  for (std::uint64_t mark = 0; lines >> mark && std::getline(lines >> std::ws, name);)
    marks[name] = mark;
  return marks;
}

void writeMarks(const fs::path& record, const Marks& marks) {
  std::string text;
  for (const auto& [name, mark] : marks) text += std::to_string(mark) + " " + name + "\n";
  writeWhole(record, text);
}

void keepCopy(const fs::path& file) {
  const fs::path copy = file.string() + ".bak";
  if (!fs::exists(fs::symlink_status(copy))) copyWhole(file, copy);
}

/// One that cannot be read is not what was shipped.
void renew(const fs::path& latest, const fs::path& own, const std::string& name, Marks& marks) {
  const std::string wanted = readFile(latest.string());
  const std::string present = readFile(own.string());
  if (present != wanted) {
    const auto known = marks.find(name);
    if (known != marks.end() && known->second != markOf(present)) return;
    if (known == marks.end()) keepCopy(own);
    writeWhole(own, wanted);
  }
  marks[name] = markOf(wanted);
}

}  // namespace

void renewDocuments(const std::string& shipped, const std::string& folder) {
  const fs::path documents = fs::path(shipped) / "Docs";
  const fs::path own = nativePath(joinedPath(folder, "Docs"));
  if (!fs::is_directory(documents) || !fs::is_directory(own)) return;
  const fs::path record = own / ".shipped";
  const Marks known = readMarks(record);
  Marks marks = known;
  for (const auto& entry : fs::directory_iterator(documents)) {
    const std::string name = entry.path().filename().string();
    const fs::path mine = nativePath(joinedPath(own.string(), name));
    if (!fs::is_regular_file(fs::symlink_status(mine))) continue;
    try {
      renew(entry.path(), mine, name, marks);
    } catch (const RuntimeError&) {
      // Nothing is known of it then: it stays.
    }
  }
  if (marks != known) writeMarks(record, marks);
}

}  // namespace vorlent
