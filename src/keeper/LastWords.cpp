#include "keeper/LastWords.h"

namespace vorlent {

void LastWords::hear(std::string_view text) {
  for (const char c : text)
    if (c == '\n')
      finishLine();
    else if (c != '\r' && begun_.size() < LongestLine_bytes)
      begun_ += c;
}

void LastWords::finishLine() {
  lines_.push_back(begun_);
  begun_.clear();
  if (lines_.size() > MostLines) lines_.pop_front();
}

std::string LastWords::text() const {
  std::string all;
  for (const std::string& line : lines_) all += line + "\n";
  return begun_.empty() ? all : all + begun_ + "\n";
}

void LastWords::forget() {
  lines_.clear();
  begun_.clear();
}

}  // namespace vorlent
