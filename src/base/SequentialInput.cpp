#include "base/SequentialInput.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "base/text.h"

namespace vorlent {
namespace {

constexpr std::string_view Blanks = " \t";
constexpr std::string_view Delimiters = ",\r\n";

void dropLeading(std::string_view& text, std::string_view characters) {
  text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
}

}  // namespace

bool SequentialInput::atEnd() const {
  return rest_.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

std::string SequentialInput::text() {
  if (rest_.empty()) throw RuntimeError(RuntimeError::InputPastEnd);
  dropLeading(rest_, Blanks);
  return rest_.starts_with('"') ? quoted() : plain();
}

std::int16_t SequentialInput::int16() { return int16Of(text()); }

/// What stands between the closing quote and the delimiter is dropped.
std::string SequentialInput::quoted() {
  rest_.remove_prefix(1);
  const auto end = std::min(rest_.find('"'), rest_.size());
  std::string field(rest_.substr(0, end));
  rest_.remove_prefix(std::min(end + 1, rest_.size()));
  passDelimiter();
  return field;
}

std::string SequentialInput::plain() {
  const std::string_view field = rest_.substr(0, rest_.find_first_of(Delimiters));
  passDelimiter();
  return std::string(field.substr(0, field.find_last_not_of(Blanks) + 1));
}

void SequentialInput::passDelimiter() {
  rest_.remove_prefix(std::min(rest_.find_first_of(Delimiters), rest_.size()));
  rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : std::min<std::size_t>(1, rest_.size()));
}

}  // namespace vorlent
