#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Text and numbers as text. No function here looks at the process's locale: where a regional
/// decimal mark is meant it is an argument.
namespace vorlent {

std::string trimmed(std::string_view text);
std::string upperCase(std::string_view text);
bool equalIgnoringCase(std::string_view a, std::string_view b);
bool lessIgnoringCase(std::string_view a, std::string_view b);
std::string replaced(std::string_view text, std::string_view what, std::string_view with);
std::string hexText(std::uint32_t value);

/// General form: at most 7 (single) or 15 (double) significant digits, no trailing zeros, exponent
/// as E+07, `decimalMark` in place of the point. Zero is "0" whatever its sign.
void appendSingle(std::string& to, float value, std::string_view decimalMark = ".");
void appendDouble(std::string& to, double value, std::string_view decimalMark = ".");
void appendInteger(std::string& to, std::int64_t value);
std::string singleText(float value, std::string_view decimalMark = ".");
std::string doubleText(double value, std::string_view decimalMark = ".");

/// The number that the whole text is, blanks around it dropped; nothing when it is none, or is not
/// finite. One too small for a double is 0.
std::optional<double> numeric(std::string_view text);
/// As numeric(); raises TypeMismatch for text that is no number and Overflow for one too large.
double numberOf(std::string_view text);
/// As numberOf(), with `decimalMark` as the only decimal mark.
double regionalNumberOf(std::string_view text, std::string_view decimalMark);
/// Rounded half to even; raises TypeMismatch or Overflow.
std::int16_t int16Of(std::string_view text);
/// "True" or "False" in any case of letters, or a number, where 0 is false; raises TypeMismatch.
bool booleanOf(std::string_view text);
std::string_view booleanText(bool value);

/// Cuts the first field off `text` and returns it: the text before the first delimiter, which goes
/// with it. Without a delimiter the whole text is returned and `text` stays as it is.
std::string GetNext(std::string& text, std::string_view delimiter);

enum class DotMode { OneDot = 0, NoDot = 1 };
/// An empty text gives "0", a number made of digits gives itself, anything else an empty text.
std::string FilterNumber(std::string_view text, DotMode dotMode, bool negativeAllowed);

/// One name of a machine, as it may stand in a path: letters, digits, "-", "_" and "."; not empty,
/// not "." and not "..".
bool isHostName(std::string_view text);

}  // namespace vorlent
