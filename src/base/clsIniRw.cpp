#include "base/clsIniRw.h"

#include <algorithm>

#include "base/IniDocument.h"
#include "base/RuntimeError.h"
#include "base/backups.h"
#include "base/files.h"
#include "base/numbers.h"
#include "base/text.h"

namespace vorlent {
namespace {

// The readers' buffers: 1024 and 256 characters with their closing NULs.
constexpr std::size_t LongestSection = 1022;
constexpr std::size_t LongestValue = 255;

/// Characters count as the bytes of UTF-8; one that would be cut in two is left out.
std::string limited(std::string text, std::size_t length) {
  if (text.size() <= length) return text;
  const auto follows = [&text](std::size_t at) {
    return (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
  };
  const std::size_t earliest = length - std::min<std::size_t>(length, 3);
  std::size_t cut = length;
  while (cut > earliest && follows(cut)) --cut;
  text.resize(follows(cut) ? length : cut);
  return text;
}

std::optional<double> numberIn(std::string_view text) {
  const auto point = text.find('.');
  if (point == 0) return std::nullopt;
  if (point != std::string_view::npos && text.find('.', point + 1) != std::string_view::npos)
    return std::nullopt;
  return numeric(text);
}

std::string written(std::string_view value) {
  std::string withPoint = replaced(value, ",", ".");
  return numeric(withPoint) ? withPoint : std::string(value);
}

IniDocument documentForReading(std::string_view file) {
  try {
    return IniDocument(readFile(file));
  } catch (const RuntimeError&) {
    return {};
  }
}

/// Empty only when there is no file: one that is there but cannot be read must not be replaced.
IniDocument documentForWriting(std::string_view file) {
  try {
    return IniDocument(readFile(file));
  } catch (const RuntimeError& error) {
    if (error.number() != RuntimeError::FileNotFound) throw;
    return {};
  }
}

}  // namespace

IniValue::IniValue(std::string text) : text_(std::move(text)), number_(numberIn(text_)) {}

double IniValue::asDouble() const {
  if (!number_) throw RuntimeError(RuntimeError::TypeMismatch);
  return *number_;
}

std::int16_t IniValue::asInt16() const { return toInt16(asDouble()); }

bool IniValue::asBoolean() const { return number_ ? *number_ != 0 : booleanOf(text_); }

std::string clsIniRw::ReadSection(std::string_view section, std::string_view file) const {
  return limited(documentForReading(file).sectionText(section), LongestSection);
}

void clsIniRw::WriteSection(std::string_view section, std::string_view text,
                            std::string_view file) const {
  auto document = documentForWriting(file);
  document.replaceSection(section, text);
  replaceFile(file, document.text());
}

IniValue clsIniRw::ReadKey(std::string_view section, std::string_view key,
                           std::string_view file) const {
  return keyIn(documentForReading(file), section, key);
}

IniValue clsIniRw::keyIn(const IniDocument& document, std::string_view section,
                         std::string_view key) {
  return IniValue(limited(document.value(section, key).value_or(""), LongestValue));
}

void clsIniRw::WriteKey(std::string_view section, std::string_view key, std::string_view value,
                        std::string_view file) const {
  const KeyValue entry{std::string(key), std::string(value)};
  WriteKeys(section, {&entry, 1}, file);
}

void clsIniRw::WriteKeys(std::string_view section, std::span<const KeyValue> entries,
                         std::string_view file) const {
  auto document = documentForWriting(file);
  for (const auto& entry : entries) document.set(section, entry.key, written(entry.value));
  replaceKeepingBackups(file, document.text());
}

void clsIniRw::DeleteKey(std::string_view section, std::string_view key,
                         std::string_view file) const {
  if (!fileExists(file)) return;
  auto document = documentForWriting(file);
  document.remove(section, key);
  replaceFile(file, document.text());
}

}  // namespace vorlent
