#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace vorlent {

/// A client's block, built byte by byte.
class RequestBlock {
 public:
  explicit RequestBlock(std::size_t size = 32768) : bytes_(size) {}

  /// The place of the data in the block.
  std::size_t read(std::uint32_t offset, std::uint32_t size, std::uint32_t destination = 0) {
    header({1, offset, size, destination});
    const std::size_t data = next_;
    next_ += size;
    return data;
  }

  RequestBlock& write(std::uint32_t offset, const std::vector<std::uint8_t>& data) {
    header({2, offset, static_cast<std::uint32_t>(data.size())});
    for (const std::uint8_t byte : data) put8(byte);
    return *this;
  }

  RequestBlock& close() {
    put32(0);
    return *this;
  }

  RequestBlock& header(const std::vector<std::uint32_t>& fields) {
    for (const std::uint32_t field : fields) put32(field);
    return *this;
  }

  void fill(std::uint8_t with) { bytes_.assign(bytes_.size(), std::byte{with}); }
  void moveTo(std::size_t place) { next_ = place; }

  std::vector<std::uint8_t> at(std::size_t place, std::size_t size) const {
    std::vector<std::uint8_t> found;
    for (std::size_t i = 0; i < size; ++i)
      found.push_back(std::to_integer<std::uint8_t>(bytes_.at(place + i)));
    return found;
  }

  std::span<std::byte> bytes() { return bytes_; }

 private:
  void put32(std::uint32_t value) {
    for (int shift = 0; shift < 32; shift += 8) put8(static_cast<std::uint8_t>(value >> shift));
  }
  void put8(std::uint8_t value) { bytes_.at(next_++) = std::byte{value}; }

  std::vector<std::byte> bytes_;
  std::size_t next_ = 0;
};

}  // namespace vorlent
