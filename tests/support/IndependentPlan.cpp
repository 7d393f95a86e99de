#include "support/IndependentPlan.h"

#include <algorithm>

namespace vorlent::independent {
namespace {

/// What each field is: a name, a text, a single, a word of 16 or 32 bits. The first one is field 1.
constexpr std::string_view Kinds = "NTTSSSSSSSSSSSSSSLSWTLSSSS";
static_assert(Kinds.size() == FieldCount);

/// A text, cut at commas and line ends.
class Fields {
 public:
  explicit Fields(std::string_view text) : text_(text) {}

  std::string next() {
    if (at_ >= text_.size()) throw Fault{};
    at_ = std::min(text_.find_first_not_of(" \t", at_), text_.size());
    const bool quoted = at_ < text_.size() && text_[at_] == '"';
    const std::size_t from = quoted ? at_ + 1 : at_;
    std::size_t to = std::min(text_.find_first_of(quoted ? "\"" : ",\r\n", from), text_.size());
    at_ = to;
    passDelimiter();
    while (!quoted && to > from && (text_[to - 1] == ' ' || text_[to - 1] == '\t')) --to;
    return std::string(text_.substr(from, to - from));
  }

 private:
  void passDelimiter() {
    at_ = text_.find_first_of(",\r\n", at_);
    if (at_ == std::string_view::npos) {
      at_ = text_.size();
      return;
    }
    at_ += text_.substr(at_, 2) == "\r\n" ? 2 : 1;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

std::string ofFiveCharacters(std::string name) {
  name.resize(5, ' ');
  return name;
}

void readField(Fields& fields, Row& row, std::size_t number) {
  const std::string text = fields.next();
  switch (Kinds[number - 1]) {
    case 'N':
      row.texts[number] = ofFiveCharacters(text);
      break;
    case 'T':
      row.texts[number] = text;
      break;
    case 'S':
      row.numbers[number] = Single(decimal(text));
      break;
    case 'L':
      row.numbers[number] = Long(decimal(text));
      break;
    default:
      row.numbers[number] = Word(decimal(text));
  }
}

void readRow(Fields& fields, Row& row) {
  for (std::size_t number = 1; number <= FieldCount; ++number) readField(fields, row, number);
}

std::string_view present(const std::optional<std::string>& file) {
  if (!file) throw Fault{};
  return *file;
}

}  // namespace

const Row& Plan::at(const std::vector<Row>& rows, int number) {
  if (number < 0 || static_cast<std::size_t>(number) >= rows.size()) throw Fault{};
  return rows[static_cast<std::size_t>(number)];
}

void Plan::read(const Share& share) {
  readExec(present(share.exec));
  readProf(present(share.prof));
}

void Plan::readExec(std::string_view text) {
  Fields fields(text);
  MaxWaypointId = decimal(fields.next());
  if (MaxWaypointId <= 0) return;
  rows.assign(static_cast<std::size_t>(MaxWaypointId) + 1, Row());
  for (Row& row : rows) readRow(fields, row);
}

void Plan::readProf(std::string_view text) {
  Fields fields(text);
  ProfileMaxId = decimal(fields.next());
  if (ProfileMaxId < 1) return;
  profile.assign(static_cast<std::size_t>(ProfileMaxId) + 1, Row());
  for (int number = 0; number <= ProfileMaxId; ++number) {
    Row& row = profile[static_cast<std::size_t>(number)];
    readRow(fields, row);
    if (row.texts[Name] == "T/C  ") TocRow = number;
    if (row.texts[Name] == "T/D  ") TodRow = number;
  }
}

}  // namespace vorlent::independent
