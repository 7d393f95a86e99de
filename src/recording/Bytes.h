#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Numbers and texts as a recording's bytes: a number takes seven bits a byte, the lowest first,
/// with the top bit set in all bytes but its last; a signed one changes its sign's place first, so
/// that small ones are short; a text stands behind its length.
namespace vorlent::recorded {

/// Raises RuntimeError InputPastEnd: these bytes are not what they should be.
[[noreturn]] void refuseBytes();

void putNumber(std::string& bytes, std::uint64_t number);
void putSigned(std::string& bytes, std::int64_t number);
void putText(std::string& bytes, std::string_view text);

/// Reads what these have put. Raises RuntimeError InputPastEnd where the bytes end too early or
/// are none of them.
class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes) : rest_(bytes) {}

  bool atEnd() const { return rest_.empty(); }
  std::size_t left() const { return rest_.size(); }
  std::uint64_t number();
  /// Raises as well above `most`.
  std::uint64_t numberUpTo(std::uint64_t most);
  std::int64_t signedNumber();
  std::string_view text() { return bytes(numberUpTo(rest_.size())); }
  std::string_view bytes(std::size_t count);

 private:
  std::string_view rest_;
};

}  // namespace vorlent::recorded
