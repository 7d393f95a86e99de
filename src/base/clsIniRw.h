#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vorlent {

class IniDocument;

/// What a key holds: the text as it stands, and the number that it is read as, if any. Text that is
/// numeric is a number, unless it starts with "." or has a second "." (an address such as
/// "192.168.0.1" stays a text). A reader of a text takes asText(), so "007" keeps its zeros.
class IniValue {
 public:
  explicit IniValue(std::string text);

  const std::string& asText() const { return text_; }
  const std::optional<double>& number() const { return number_; }

  /// These raise TypeMismatch when the value is no number, an empty one included.
  double asDouble() const;
  /// Rounded half to even; raises Overflow outside -32768..32767.
  std::int16_t asInt16() const;
  /// "True" or "False" in any case of letters, or a number, where 0 is false.
  bool asBoolean() const;

 private:
  std::string text_;
  std::optional<double> number_;
};

/// Reads and writes INI files, each call by itself: nothing is kept between calls. Paths are as in
/// base/files.h. A file that is missing or cannot be read gives empty texts. A write keeps every
/// other line of the file and replaces the file as a whole; it makes a missing file, and raises
/// what base/files.h raises, with the file as it was, when it cannot be done.
class clsIniRw {
 public:
  struct KeyValue {
    std::string key;
    std::string value;
  };

  /// The section's lines `key=value`, each ended by NUL: their first 1022 characters.
  std::string ReadSection(std::string_view section, std::string_view file) const;
  /// `text` is of the form that ReadSection gives and takes the place of the section's lines.
  void WriteSection(std::string_view section, std::string_view text, std::string_view file) const;

  /// At most 255 characters; empty when there is no such key.
  IniValue ReadKey(std::string_view section, std::string_view key, std::string_view file) const;
  /// As ReadKey(), of a text that did not come from a file of this machine.
  static IniValue keyIn(const IniDocument& document, std::string_view section,
                        std::string_view key);
  /// A numeric value is written with a decimal point, also when it was typed with a comma; any
  /// other as it stands.
  void WriteKey(std::string_view section, std::string_view key, std::string_view value,
                std::string_view file) const;
  /// As WriteKey() for each in turn, in one replacement of the file.
  void WriteKeys(std::string_view section, std::span<const KeyValue> entries,
                 std::string_view file) const;
  void DeleteKey(std::string_view section, std::string_view key, std::string_view file) const;
};

}  // namespace vorlent
