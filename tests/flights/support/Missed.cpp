#include "Missed.h"

#include <sstream>
#include <string_view>

#include "base/files.h"
#include "base/text.h"
#include "support/places.h"

namespace vorlent {
namespace {

std::string cell(std::istringstream& row) {
  std::string text;
  std::getline(row, text, '|');
  return std::string(trimmed(text));
}

void addFrom(const std::string& path, std::vector<Missed>& all) {
  std::istringstream lines(readFile(path));
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line.starts_with('#')) continue;
    std::istringstream row(line);
    Missed missed{cell(row), cell(row), 0};
    missed.bound = numberOf(cell(row));
    all.push_back(std::move(missed));
  }
}

}  // namespace

std::vector<Missed> missedFigures() {
  std::vector<Missed> all;
  addFrom(testsFolder() + "/flights/missed.txt", all);
  const std::string ofThisSystem = testsFolder() + "/flights/missed-" VORLENT_SYSTEM ".txt";
  if (fileExists(ofThisSystem)) addFrom(ofThisSystem, all);
  return all;
}

}  // namespace vorlent
