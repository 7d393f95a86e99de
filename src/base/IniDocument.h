#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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

  /// The section's keys as lines `key=value`, each ended by NUL; quotes around values stay. Empty
  /// when the section is missing.
  std::string sectionText(std::string_view section) const;

  /// Replaces the section's keys by the lines of `text`, as sectionText() gives them (the last NUL
  /// may be missing; an empty line ends the text). Comments and blank lines stay. Lines that would
  /// not be keys are left out. Raises InvalidCall for a section with "]", a line break or NUL.
  void replaceSection(std::string_view section, std::string_view text);

  /// The whole text, in the encoding in which it came.
  std::string text() const;

 private:
  enum class Encoding { Bytes, Utf8WithMark, Utf16 };
  struct Line {
    std::string text;
    std::string_view lineBreak;  ///< "\r\n", "\n", or empty for the last line
  };
  /// The lines that follow a section's heading: indices, from the first to one behind the last.
  struct Range {
    std::size_t first;
    std::size_t end;
  };

  void appendLines(std::string_view content);
  std::optional<Range> rangeOf(std::string_view section) const;
  Range rangeOrNew(std::string_view section);
  std::optional<std::size_t> lineOf(std::string_view section, std::string_view key) const;
  std::size_t behindLastText(Range range) const;
  void insertLine(std::size_t at, std::string text);
  std::string_view usualLineBreak() const;

  Encoding encoding_ = Encoding::Bytes;
  std::vector<Line> lines_;
  std::string oddByte_;  ///< what is left behind the last whole unit of a UTF-16 text
};

}  // namespace vorlent
