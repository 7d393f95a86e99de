#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vorlent {

/// A comma-delimited text read field by field, whichever line a field stands on. A comma or a line
/// break ends a field; blanks around it are dropped; between double quotes it may hold both.
class SequentialInput {
 public:
  explicit SequentialInput(std::string_view text) : rest_(text) {}

  /// Nothing but blanks and line breaks is left.
  bool atEnd() const;
  /// Raises InputPastEnd.
  std::string text();
  /// Rounded half to even; raises InputPastEnd, TypeMismatch or Overflow.
  std::int16_t int16();

 private:
  std::string quoted();
  std::string plain();
  void passDelimiter();

  std::string_view rest_;
};

}  // namespace vorlent
