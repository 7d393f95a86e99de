#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"

namespace vorlent {

/// A text read line by line, whichever line break it uses.
class TextLines {
 public:
  explicit TextLines(std::string_view text) : rest_(text) {}

  bool atEnd() const { return rest_.empty(); }
  /// What no line was read of yet.
  std::string_view rest() const { return rest_; }

  /// Raises InputPastEnd behind the last line.
  std::string next() {
    if (atEnd()) throw RuntimeError(RuntimeError::InputPastEnd);
    const auto end = rest_.find_first_of("\r\n");
    std::string line(rest_.substr(0, end));
    if (end == std::string_view::npos) {
      rest_ = {};
    } else {
      const bool isPair = rest_.substr(end, 2) == "\r\n";
      rest_.remove_prefix(end + (isPair ? 2 : 1));
    }
    return line;
  }

 private:
  std::string_view rest_;
};

/// The fields between the commas of a line; an empty line has one empty field.
inline std::vector<std::string> commaFields(std::string_view line) {
  std::vector<std::string> fields;
  for (;;) {
    const auto comma = line.find(',');
    fields.emplace_back(line.substr(0, comma));
    if (comma == std::string_view::npos) return fields;
    line.remove_prefix(comma + 1);
  }
}

}  // namespace vorlent
