#include <array>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/IniDocument.h"
#include "base/RuntimeError.h"
#include "require.h"

// An input is an INI text; behind it, each after a byte 0x1E, may stand a section, a key and a
// value to work with.

namespace {

using vorlent::IniDocument;
using vorlent::RuntimeError;

struct Input {
  std::string document;
  std::string section = "Vorlent";
  std::string key = "Port";
  std::string value = "5001";
};

Input split(std::string_view bytes) {
  Input input;
  const std::array fields{&input.document, &input.section, &input.key, &input.value};
  for (std::size_t field = 0; field < fields.size(); ++field) {
    const auto mark = field + 1 < fields.size() ? bytes.find('\x1E') : std::string_view::npos;
    *fields[field] = bytes.substr(0, mark);
    if (mark == std::string_view::npos) break;
    bytes.remove_prefix(mark + 1);
  }
  return input;
}

std::string trim(std::string text) {
  const auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
  while (!text.empty() && blank(text.back())) text.pop_back();
  while (!text.empty() && blank(text.front())) text.erase(0, 1);
  return text;
}

std::string withoutQuotes(std::string text) {
  if (text.size() < 2 || text.front() != text.back()) return text;
  if (text.front() != '"' && text.front() != '\'') return text;
  return text.substr(1, text.size() - 2);
}

std::string readBack(std::string value) {
  for (char& c : value)
    if (c == '\r' || c == '\n' || c == '\0') c = ' ';
  return withoutQuotes(trim(value));
}

bool sameName(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t at = 0; at < a.size(); ++at) {
    const auto x = static_cast<unsigned char>(a[at]);
    const auto y = static_cast<unsigned char>(b[at]);
    if (x != y && !(x < 0x80 && y < 0x80 && std::toupper(x) == std::toupper(y))) return false;
  }
  return true;
}

std::vector<std::string> linesOf(std::string_view sectionText) {
  std::vector<std::string> lines;
  while (!sectionText.empty()) {
    const auto end = sectionText.find('\0');
    VORLENT_REQUIRE(end != std::string_view::npos);
    lines.emplace_back(sectionText.substr(0, end));
    sectionText.remove_prefix(end + 1);
  }
  return lines;
}

std::optional<std::size_t> lineOfKey(const std::vector<std::string>& lines, std::string_view key) {
  for (std::size_t at = 0; at < lines.size(); ++at) {
    const auto equals = lines[at].find('=');
    if (equals != std::string::npos && sameName(trim(lines[at].substr(0, equals)), key)) return at;
  }
  return std::nullopt;
}

void readersAgree(const IniDocument& document, const Input& input) {
  const auto lines = linesOf(document.sectionText(input.section));
  const auto line = lineOfKey(lines, trim(input.key));
  const auto value = document.value(input.section, input.key);
  VORLENT_REQUIRE(value.has_value() == line.has_value());
  if (line)
    VORLENT_REQUIRE(*value == withoutQuotes(trim(lines[*line].substr(lines[*line].find('=') + 1))));
}

/// Nothing when the names were refused.
std::optional<IniDocument> afterSet(const IniDocument& before, const Input& input) {
  IniDocument after = before;
  try {
    after.set(input.section, input.key, input.value);
    return after;
  } catch (const RuntimeError& error) {
    VORLENT_REQUIRE(error.number() == RuntimeError::InvalidCall);
    VORLENT_REQUIRE(after.text() == before.text());
    return std::nullopt;
  }
}

std::vector<std::string> linesWithoutKey(const IniDocument& document, const Input& input) {
  auto lines = linesOf(document.sectionText(input.section));
  if (const auto at = lineOfKey(lines, trim(input.key)))
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(*at));
  return lines;
}

void settingHolds(const IniDocument& before, const Input& input) {
  const auto after = afterSet(before, input);
  if (!after) return;
  VORLENT_REQUIRE(after->value(input.section, input.key) == readBack(input.value));
  VORLENT_REQUIRE(linesWithoutKey(*after, input) == linesWithoutKey(before, input));
  IniDocument again = *after;
  again.set(input.section, input.key, input.value);
  VORLENT_REQUIRE(again.text() == after->text());
  if (!input.document.starts_with("\xFF\xFE"))
    VORLENT_REQUIRE(IniDocument(after->text()).value(input.section, input.key) ==
                    readBack(input.value));
}

void removingHolds(const IniDocument& before, const Input& input) {
  IniDocument after = before;
  after.remove(input.section, input.key);
  VORLENT_REQUIRE(linesOf(after.sectionText(input.section)) == linesWithoutKey(before, input));
  if (!before.value(input.section, input.key)) VORLENT_REQUIRE(after.text() == before.text());
}

void aNewKeyThatGoesAgainLeavesNoTrace(const IniDocument& before, const Input& input) {
  if (before.sectionText(input.section).empty() || before.value(input.section, input.key)) return;
  if (!input.document.ends_with('\n') || input.document.starts_with("\xFF\xFE")) return;
  auto document = afterSet(before, input);
  if (!document) return;
  document->remove(input.section, input.key);
  VORLENT_REQUIRE(document->text() == before.text());
}

std::string withoutReturns(std::string text) {
  for (char& c : text)
    if (c == '\r') c = ' ';
  return text;
}

void aSectionSurvivesItsOwnText(const IniDocument& before, const Input& input) {
  const auto section = before.sectionText(input.section);
  if (section.empty()) return;
  IniDocument after = before;
  try {
    after.replaceSection(input.section, section);
  } catch (const RuntimeError&) {
    VORLENT_REQUIRE(after.text() == before.text());
    return;
  }
  VORLENT_REQUIRE(after.sectionText(input.section) == withoutReturns(section));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  const Input input = split(bytes);
  const IniDocument document(input.document);
  VORLENT_REQUIRE(document.text() == input.document);
  readersAgree(document, input);
  settingHolds(document, input);
  removingHolds(document, input);
  aNewKeyThatGoesAgainLeavesNoTrace(document, input);
  aSectionSurvivesItsOwnText(document, input);
  return 0;
}
