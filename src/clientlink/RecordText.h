#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/text.h"

namespace vorlent {

/// Appends tokens, each followed by the separator.
class RecordText {
 public:
  RecordText(std::string& text, std::string_view separator, std::string_view decimalMark)
      : text_(text), separator_(separator), decimalMark_(decimalMark) {}

  RecordText& I(std::int64_t value) {
    appendInteger(text_, value);
    return end();
  }
  RecordText& F(float value) {
    appendSingle(text_, value, decimalMark_);
    return end();
  }
  RecordText& D(double value) {
    appendDouble(text_, value, decimalMark_);
    return end();
  }
  RecordText& T(std::string_view value) {
    text_ += value;
    return end();
  }
  /// Tokens that bring their own separators.
  RecordText& ready(std::string_view tokens) {
    text_ += tokens;
    return *this;
  }

 private:
  RecordText& end() {
    text_ += separator_;
    return *this;
  }

  std::string& text_;
  std::string_view separator_;
  std::string_view decimalMark_;
};

}  // namespace vorlent
