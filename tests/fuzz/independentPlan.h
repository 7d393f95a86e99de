#pragma once

#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "independentText.h"
#include "require.h"

/// Plan files, read without the code under test: first all fields of the text, then what they say.
namespace independent {

inline std::string stripped(std::string text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.erase(0, 1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.pop_back();
  return text;
}

/// The first `most` fields of a text; a text that ends with a delimiter has no field behind it.
inline std::vector<std::string> planFields(std::string_view text, std::size_t most) {
  std::vector<std::string> fields;
  std::size_t at = 0;
  while (at < text.size() && fields.size() < most) {
    while (at < text.size() && (text[at] == ' ' || text[at] == '\t')) ++at;
    const bool quoted = at < text.size() && text[at] == '"';
    std::string field;
    if (quoted)
      for (++at; at < text.size() && text[at] != '"'; ++at) field += text[at];
    std::string unquoted;
    while (at < text.size() && text[at] != ',' && text[at] != '\r' && text[at] != '\n')
      unquoted += text[at++];
    const bool pair = at + 1 < text.size() && text[at] == '\r' && text[at + 1] == '\n';
    at += pair ? 2 : 1;
    fields.push_back(quoted ? field : stripped(unquoted));
  }
  return fields;
}

constexpr std::size_t FieldsOfARow = 26;

inline bool isTextField(std::size_t field) {
  return field == 0 || field == 1 || field == 2 || field == 20;
}

/// Whether the text can stand in this field of a row, counted from 0.
inline bool fits(std::size_t field, const std::string& fieldText) {
  if (isTextField(field)) return true;
  const std::string text = stripped(fieldText);
  if (field == 17 || field == 21) return wholeNumber(text, -2147483647 - 1, 2147483647).has_value();
  if (field == 19) return wholeNumber(text, -32768, 32767).has_value();
  const auto value = number(text);
  // Half a step beyond the largest single.
  return value && std::fabs(*value) < std::ldexp(2 - std::ldexp(1, -24), 127);
}

}  // namespace independent
