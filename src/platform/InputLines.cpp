#include "platform/InputLines.h"

#include <algorithm>

namespace vorlent {

std::optional<std::string> InputLines::next() {
  if (pending_.find('\n') == std::string::npos) readAvailable();
  const std::size_t end = std::min(pending_.find('\n'), pending_.size());
  const bool whole = end < pending_.size();
  if (!whole && (!ended_ || pending_.empty())) return std::nullopt;
  std::string line = pending_.substr(0, end);
  pending_.erase(0, end + 1);
  if (line.ends_with('\r')) line.pop_back();
  line.resize(std::min(line.size(), LongestLine_bytes));
  return line;
}

void InputLines::readAvailable() {
  if (ended_) return;
  const auto part = read_();
  ended_ = !part;
  pending_ += part.value_or("");
  if (pending_.find('\n') == std::string::npos)
    pending_.resize(std::min(pending_.size(), LongestLine_bytes));
}

}  // namespace vorlent
