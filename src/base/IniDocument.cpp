#include "base/IniDocument.h"

#include <algorithm>
#include <utility>

#include "base/RuntimeError.h"
#include "base/text.h"
#include "base/utf16.h"

namespace vorlent {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view Utf16Mark = "\xFF\xFE";
constexpr std::string_view Blanks = " \t\r";
constexpr std::string_view LineEnds = "\r\n\0"sv;

std::string_view withoutBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(Blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

/// What the reader sees of a line.
std::string_view readable(std::string_view line) {
  return withoutBlanks(line.substr(0, line.find('\0')));
}

/// What the reader takes a written value for.
std::string_view plainValue(std::string_view written) {
  const auto value = readable(written);
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

struct Line {
  std::size_t first;
  std::size_t end;           ///< behind the line break
  std::string_view content;  ///< without the line break
};

Line lineAt(std::string_view text, std::size_t first) {
  const auto feed = text.find('\n', first);
  if (feed == std::string_view::npos) return {first, text.size(), text.substr(first)};
  auto content = text.substr(first, feed - first);
  if (content.ends_with('\r')) content.remove_suffix(1);
  return {first, feed + 1, content};
}

std::optional<std::string_view> headingIn(std::string_view line) {
  const auto seen = readable(line);
  if (!seen.starts_with('[')) return std::nullopt;
  const auto close = seen.find(']');
  if (close == std::string_view::npos) return std::nullopt;
  return withoutBlanks(seen.substr(1, close - 1));
}

/// Neither blank nor a comment. A heading too, so ask only inside a section.
bool hasEntry(const Line& line) {
  const auto seen = readable(line.content);
  return !seen.empty() && !seen.starts_with(';');
}

bool hasKey(const Line& line, std::string_view key) {
  const auto seen = readable(line.content);
  const auto equals = seen.find('=');
  return hasEntry(line) && equals != std::string_view::npos &&
         equalIgnoringCase(withoutBlanks(seen.substr(0, equals)), key);
}

std::string onOneLine(std::string_view text) {
  std::string line(text);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return LineEnds.find(c) != std::string_view::npos; },
      ' ');
  return line;
}

std::string_view checkedName(std::string_view name, std::string_view forbidden) {
  if (name.find_first_of(forbidden) != std::string_view::npos ||
      name.find_first_of(LineEnds) != std::string_view::npos)
    throw RuntimeError(RuntimeError::InvalidCall);
  return withoutBlanks(name);
}

std::string_view checkedSection(std::string_view name) { return checkedName(name, "]"); }

std::string_view checkedKey(std::string_view name) {
  const auto key = checkedName(name, "=");
  if (key.empty() || key.starts_with(';') || key.starts_with('['))
    throw RuntimeError(RuntimeError::InvalidCall);
  return key;
}

}  // namespace

IniDocument::IniDocument(std::string_view bytes) {
  if (bytes.starts_with(Utf16Mark)) {
    encoding_ = Encoding::Utf16;
    bytes.remove_prefix(Utf16Mark.size());
    text_ = utf8OfUtf16(bytes);
    oddByte_ = bytes.substr(bytes.size() - bytes.size() % 2);
  } else if (bytes.starts_with(Utf8Mark)) {
    encoding_ = Encoding::Utf8WithMark;
    text_ = bytes.substr(Utf8Mark.size());
  } else {
    text_ = bytes;
  }
}

std::string IniDocument::text() const {
  switch (encoding_) {
    case Encoding::Utf16:
      return std::string(Utf16Mark) + utf16OfUtf8(text_) + oddByte_;
    case Encoding::Utf8WithMark:
      return std::string(Utf8Mark) + text_;
    default:
      return text_;
  }
}

std::optional<std::string> IniDocument::value(std::string_view section,
                                              std::string_view key) const {
  const auto range = rangeOf(section);
  const auto found = range ? valueRange(*range, key) : std::nullopt;
  if (!found) return std::nullopt;
  const std::string_view text = text_;
  return std::string(plainValue(text.substr(found->first, found->end - found->first)));
}

void IniDocument::set(std::string_view section, std::string_view key, std::string_view value) {
  const auto name = checkedKey(key);
  const auto range = rangeOrNew(section);
  const auto written = onOneLine(value);
  if (const auto old = valueRange(range, name)) {
    const std::string_view text = text_;
    if (plainValue(text.substr(old->first, old->end - old->first)) != plainValue(written))
      text_.replace(old->first, old->end - old->first, written);
    return;
  }
  insertLines(behindLastText(range),
              std::string(name) + '=' + written + std::string(usualLineBreak()));
}

void IniDocument::remove(std::string_view section, std::string_view key) {
  const auto range = rangeOf(section);
  const auto found = range ? valueRange(*range, key) : std::nullopt;
  if (!found) return;
  const auto first = text_.rfind('\n', found->first - 1) + 1;  // 0 when there is no line before
  text_.erase(first, lineAt(text_, first).end - first);
}

std::string IniDocument::sectionText(std::string_view section) const {
  std::string lines;
  const auto range = rangeOf(section).value_or(Range{0, 0});
  for (auto line = lineAt(text_, range.first); line.first < range.end;
       line = lineAt(text_, line.end)) {
    if (!hasEntry(line)) continue;
    const auto seen = readable(line.content);
    const auto equals = seen.find('=');
    lines += withoutBlanks(seen.substr(0, equals));
    if (equals != std::string_view::npos) {
      lines += '=';
      lines += withoutBlanks(seen.substr(equals + 1));
    }
    lines += '\0';
  }
  return lines;
}

void IniDocument::replaceSection(std::string_view section, std::string_view text) {
  const auto lineBreak = usualLineBreak();
  std::string lines;
  while (!text.empty() && text.front() != '\0') {
    const auto line = text.substr(0, text.find('\0'));
    if (headingIn(line)) throw RuntimeError(RuntimeError::InvalidCall);
    lines += onOneLine(line);
    lines += lineBreak;
    text.remove_prefix(std::min(line.size() + 1, text.size()));
  }
  insertLines(removeLines(rangeOrNew(section)), lines);
}

std::optional<IniDocument::Range> IniDocument::rangeOf(std::string_view section) const {
  const auto name = withoutBlanks(section);
  std::optional<std::size_t> first;
  for (auto line = lineAt(text_, 0); line.first < text_.size(); line = lineAt(text_, line.end)) {
    const auto heading = headingIn(line.content);
    if (heading && first) return Range{*first, line.first};
    if (heading && equalIgnoringCase(*heading, name)) first = line.end;
  }
  if (!first) return std::nullopt;
  return Range{*first, text_.size()};
}

IniDocument::Range IniDocument::rangeOrNew(std::string_view section) {
  const auto name = checkedSection(section);
  if (const auto range = rangeOf(name)) return *range;
  insertLines(text_.size(), '[' + std::string(name) + ']' + std::string(usualLineBreak()));
  return {text_.size(), text_.size()};
}

/// What stands behind the "=" and the blanks that follow it, up to the line's break.
std::optional<IniDocument::Range> IniDocument::valueRange(Range section,
                                                          std::string_view key) const {
  const auto name = withoutBlanks(key);
  for (auto line = lineAt(text_, section.first); line.first < section.end;
       line = lineAt(text_, line.end)) {
    if (!hasKey(line, name)) continue;
    const auto content = line.content;
    const auto first = content.find_first_not_of(Blanks, content.find('=') + 1);
    return Range{line.first + std::min(first, content.size()), line.first + content.size()};
  }
  return std::nullopt;
}

std::size_t IniDocument::behindLastText(Range section) const {
  std::size_t behind = section.first;
  for (auto line = lineAt(text_, section.first); line.first < section.end;
       line = lineAt(text_, line.end))
    if (!withoutBlanks(line.content).empty()) behind = line.end;
  return behind;
}

/// Where the first of them stood, or where a new one belongs when there was none.
std::size_t IniDocument::removeLines(Range section) {
  std::string kept;
  std::optional<std::size_t> place;
  for (auto line = lineAt(text_, section.first); line.first < section.end;
       line = lineAt(text_, line.end)) {
    if (hasEntry(line))
      place = place.value_or(line.first);
    else
      kept.append(text_, line.first, line.end - line.first);
  }
  if (!place) return behindLastText(section);
  text_.replace(section.first, section.end - section.first, kept);
  return *place;
}

void IniDocument::insertLines(std::size_t at, std::string_view lines) {
  if (lines.empty()) return;
  if (at > 0 && text_[at - 1] != '\n') {
    const auto lineBreak = usualLineBreak();
    text_.insert(at, lineBreak);
    at += lineBreak.size();
  }
  text_.insert(at, lines);
}

std::string_view IniDocument::usualLineBreak() const {
  std::size_t all = 0;
  std::size_t withReturn = 0;
  for (auto feed = text_.find('\n'); feed != std::string::npos; feed = text_.find('\n', feed + 1)) {
    ++all;
    if (feed > 0 && text_[feed - 1] == '\r') ++withReturn;
  }
  return 2 * withReturn >= all ? "\r\n" : "\n";
}

}  // namespace vorlent
