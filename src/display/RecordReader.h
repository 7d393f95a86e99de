#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "display/RecordLayout.h"

namespace vorlent {

/// A datagram that is no data record, or a damaged one; what() tells what is wrong with it.
class RecordFault : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Field {
  std::string text;   ///< as received, with the decimal mark of the server
  double number = 0;  ///< of a text token 0
};

/// One decoded data record. Units and meanings are those of the token table.
class Record {
 public:
  Record(const RecordLayout& layout, std::vector<Field> fields)
      : layout_(&layout), fields_(std::move(fields)) {}

  const RecordLayout& layout() const { return *layout_; }
  const std::vector<Field>& fields() const { return fields_; }

  /// By full name, such as "Ias" or "Engines(2).N1". Raises SubscriptOutOfRange for a name that the
  /// record does not have.
  double number(std::string_view name) const { return field(name).number; }
  const std::string& text(std::string_view name) const { return field(name).text; }
  /// Whether the bit of this name is set in `ApBits(1)` to `ApBits(3)`; raises likewise.
  bool apBit(std::string_view name) const;

 private:
  const Field& field(std::string_view name) const;

  const RecordLayout* layout_;
  std::vector<Field> fields_;
};

/// Decodes data records.
class RecordReader {
 public:
  /// The decimal mark of the greeting's reply. While it is empty, each record's own mark is
  /// recognised from its numbers.
  void decimalMark(std::string mark) { decimalMark_ = std::move(mark); }

  /// Raises RecordFault.
  Record read(std::string_view datagram) const;

 private:
  std::string decimalMark_;
};

}  // namespace vorlent
