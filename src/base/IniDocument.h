#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vorlent {

/// An INI text that keeps every line: comments (from ";"), blank lines, unknown keys, their order,
/// each line's break, and the lack of a last one. What no operation touches comes out byte for
/// byte as it went in, whatever it is.
///
/// It is read as the profile functions of Windows read: names of sections and keys in any case of
/// letters; blanks around names and values dropped, then one pair of quotes (single or double)
/// around the value; the first section of a name and the first key in it count; lines before the
/// first section, and lines without "=", are no keys; a NUL ends its line for the reader.
///
/// A UTF-8 byte-order mark is kept and passed over. A text with the UTF-16 (little-endian) mark is
/// UTF-8 towards the caller and goes back as UTF-16.
class IniDocument {
 public:
  IniDocument() = default;
  explicit IniDocument(std::string_view bytes);

  /// Nothing when the section or the key is missing.
  std::optional<std::string> value(std::string_view section, std::string_view key) const;

  /// Puts the value into the key's line; a key that is not there gets a line behind the section's
  /// last line that is not blank; a section that is not there is appended. The line of a key that
  /// already has this value stays as it is. A line break or NUL in the value becomes a blank.
  /// Raises InvalidCall for a name that could not be found again: an empty key, one with "=", one
  /// that starts with ";" or "[", a section with "]", any with a line break or NUL.
  void set(std::string_view section, std::string_view key, std::string_view value);

  /// Takes the key's line away; a key that is not there is no fault.
  void remove(std::string_view section, std::string_view key);

  /// The section's lines `key=value`, each ended by NUL, in their order; without comments and blank
  /// lines, with the quotes around values. A line without "=" is given as it stands. Empty when the
  /// section is missing.
  std::string sectionText(std::string_view section) const;

  /// Replaces the lines that sectionText() gives by the lines of `text`, which is of the same form
  /// (the last NUL may be missing; an empty line ends the text). Comments and blank lines stay.
  /// Raises InvalidCall for a section name as in set() and for a line that would be a heading.
  void replaceSection(std::string_view section, std::string_view text);

  /// The whole text, in the encoding in which it came.
  std::string text() const;

 private:
  enum class Encoding { Bytes, Utf8WithMark, Utf16 };
  /// A stretch of the text: from `first` to before `end`.
  struct Range {
    std::size_t first;
    std::size_t end;
  };

  std::optional<Range> rangeOf(std::string_view section) const;
  Range rangeOrNew(std::string_view section);
  std::optional<Range> valueRange(Range section, std::string_view key) const;
  std::size_t behindLastText(Range section) const;
  std::size_t removeLines(Range section);
  void insertLines(std::size_t at, std::string_view lines);
  std::string_view usualLineBreak() const;

  Encoding encoding_ = Encoding::Bytes;
  std::string text_;     ///< without the mark; in UTF-8 when it came in UTF-16
  std::string oddByte_;  ///< what is left behind the last whole unit of a UTF-16 text
};

}  // namespace vorlent
