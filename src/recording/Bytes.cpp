#include "recording/Bytes.h"

#include "base/RuntimeError.h"

namespace vorlent::recorded {
namespace {

constexpr int Bits = 7;
constexpr std::uint64_t More = 0x80;
constexpr int MostBits = 64;

}  // namespace

void refuseBytes() { throw RuntimeError(RuntimeError::InputPastEnd); }

void putNumber(std::string& bytes, std::uint64_t number) {
  for (; number >= More; number >>= Bits) bytes += static_cast<char>(number | More);
  bytes += static_cast<char>(number);
}

void putSigned(std::string& bytes, std::int64_t number) {
  const auto sign = static_cast<std::uint64_t>(number >> (MostBits - 1));
  putNumber(bytes, (static_cast<std::uint64_t>(number) << 1) ^ sign);
}

void putText(std::string& bytes, std::string_view text) {
  putNumber(bytes, text.size());
  bytes += text;
}

std::uint64_t ByteReader::number() {
  std::uint64_t number = 0;
  for (int shift = 0; shift < MostBits; shift += Bits) {
    const auto byte = static_cast<std::uint8_t>(bytes(1).front());
    number |= (byte & (More - 1)) << shift;
    if (byte < More) return number;
  }
  refuseBytes();
}

std::uint64_t ByteReader::numberUpTo(std::uint64_t most) {
  const std::uint64_t found = number();
  if (found > most) refuseBytes();
  return found;
}

std::int64_t ByteReader::signedNumber() {
  const std::uint64_t coded = number();
  return static_cast<std::int64_t>((coded >> 1) ^ (0 - (coded & 1)));
}

std::string_view ByteReader::bytes(std::size_t count) {
  if (count > rest_.size()) refuseBytes();
  const std::string_view taken = rest_.substr(0, count);
  rest_.remove_prefix(count);
  return taken;
}

}  // namespace vorlent::recorded
