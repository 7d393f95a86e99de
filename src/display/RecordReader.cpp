#include "display/RecordReader.h"

#include <algorithm>
#include <charconv>

#include "base/RuntimeError.h"
#include "base/text.h"

namespace vorlent {
namespace {

constexpr std::string_view Head = "Data ";
constexpr std::string_view EndMark = "end";

/// Every token has a blank behind it, so two blanks in a row hold an empty one.
std::vector<std::string_view> split(std::string_view text) {
  std::vector<std::string_view> tokens;
  while (!text.empty()) {
    const auto blank = text.find(' ');
    if (blank == std::string_view::npos)
      throw RecordFault("the record is cut off: no blank follows its last token");
    tokens.push_back(text.substr(0, blank));
    text.remove_prefix(blank + 1);
  }
  return tokens;
}

bool wholeNumber(std::string_view text, long long& value) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size();
}

const RecordLayout& layoutOf(const std::vector<std::string_view>& tokens) {
  if (tokens.empty() || tokens.back() != EndMark)
    throw RecordFault("the record is cut off: it does not close with \"end\"");
  long long engineCount = 0;
  if (!wholeNumber(tokens.front(), engineCount))
    throw RecordFault("the number of engines is no whole number: \"" + std::string(tokens.front()) +
                      "\"");
  const RecordLayout& layout = RecordLayout::ofBlocks(engineBlocks(engineCount));
  if (tokens.size() != layout.tokens().size())
    throw RecordFault("the record has " + std::to_string(tokens.size()) + " tokens, but with " +
                      std::to_string(layout.blocks()) + " engine blocks it has " +
                      std::to_string(layout.tokens().size()));
  return layout;
}

bool isFraction(TokenKind kind) { return kind == TokenKind::Single || kind == TokenKind::Double; }

bool standsInNumbers(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' ||
         c == '+';
}

/// What stands between the digits of the first number that has a fraction; a point when none has.
std::string recognisedMark(const RecordLayout& layout,
                           const std::vector<std::string_view>& tokens) {
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (!isFraction(layout.tokens()[i].row->kind)) continue;
    const auto begin = std::find_if_not(tokens[i].begin(), tokens[i].end(), standsInNumbers);
    const auto end = std::find_if(begin, tokens[i].end(), standsInNumbers);
    if (begin != end) return {begin, end};
  }
  return ".";
}

[[noreturn]] void refuse(const Token& token, std::string_view text) {
  throw RecordFault("`" + token.name + "` (group " + std::to_string(token.row->group) + ", token " +
                    std::to_string(token.row->position) + ") is no number: \"" + std::string(text) +
                    "\"");
}

double numberIn(const Token& token, std::string_view text, std::string_view decimalMark) {
  if (token.row->kind == TokenKind::Integer) {
    long long whole = 0;
    if (!wholeNumber(text, whole)) refuse(token, text);
    return static_cast<double>(whole);
  }
  try {
    return regionalNumberOf(text, decimalMark);
  } catch (const RuntimeError&) {
    refuse(token, text);
  }
}

}  // namespace

bool Record::apBit(std::string_view name) const {
  for (int bitSet = 1; bitSet <= ApBitSets; ++bitSet) {
    const auto names = apBitNames(bitSet);
    const auto found = std::find(names.begin(), names.end(), name);
    if (found == names.end()) continue;
    const auto bits = static_cast<long long>(number("ApBits(" + std::to_string(bitSet) + ")"));
    return (bits >> (found - names.begin()) & 1) != 0;
  }
  throw RuntimeError(RuntimeError::SubscriptOutOfRange, "no autopilot bit " + std::string(name));
}

const Field& Record::field(std::string_view name) const {
  const auto index = layout_->indexOf(name);
  if (!index)
    throw RuntimeError(RuntimeError::SubscriptOutOfRange,
                       "no token " + std::string(name) + " in the record");
  return fields_[*index];
}

Record RecordReader::read(std::string_view datagram) const {
  if (!datagram.starts_with(Head))
    throw RecordFault("no data record: it does not begin with \"Data \"");
  const auto tokens = split(datagram.substr(Head.size()));
  const RecordLayout& layout = layoutOf(tokens);
  const auto mark = decimalMark_.empty() ? recognisedMark(layout, tokens) : decimalMark_;
  std::vector<Field> fields(tokens.size());
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const Token& token = layout.tokens()[i];
    fields[i].text = tokens[i];
    if (token.row->kind != TokenKind::Text) fields[i].number = numberIn(token, tokens[i], mark);
  }
  return Record(layout, std::move(fields));
}

}  // namespace vorlent
