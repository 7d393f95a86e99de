#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "base/bytes.h"

namespace vorlent {

/// One read of the snapshot; `mirror` groups the reads of one kind.
struct SnapshotRead {
  const char* mirror;
  std::uint16_t offset;
  std::uint16_t size;
};

namespace snapshot_detail {

struct ReadList {
  std::array<SnapshotRead, 111> reads{};
  std::size_t count = 0;

  constexpr void add(const char* mirror, int offset, int size) {
    reads[count++] = {mirror, static_cast<std::uint16_t>(offset), static_cast<std::uint16_t>(size)};
  }
};

constexpr ReadList makeReads() {
  ReadList list;
  for (int offset = 0x0238; offset <= 0x023C; ++offset) list.add("RawTime", offset, 1);
  // In one read, so that some two hundred variables cost one queue entry.
  list.add("RawBlock", 0x0264, 4352);
  for (const int offset : {0x08E8, 0x0918, 0x0980, 0x09B0, 0x0A18, 0x0A48, 0x0AB0, 0x0AE0})
    list.add("RawEngineDoubles", offset, 8);
  for (int engine = 0; engine < 4; ++engine) {
    for (int k = 0; k < 8; ++k) list.add("RawDoubles", 0x2000 + 0x100 * engine + 8 * k, 8);
    list.add("RawDoubles", 0x2060 + 0x100 * engine, 8);
  }
  for (const int offset : {0x2408, 0x2508, 0x2608, 0x2708, 0x3B70, 0x3AB0, 0x39F0, 0x3930, 0x2EE8,
                           0x2EF0, 0x30C0, 0x2EB0, 0x2EC0, 0x0B18, 0x2824, 0x282C, 0x2834})
    list.add("RawDoubles", offset, 8);
  for (int offset = 0x2840; offset <= 0x28B8; offset += 8) list.add("RawDoubles", offset, 8);
  list.add("RawLongs", 0x2EE0, 8);
  for (const int offset : {0x281C, 0x2E80, 0x2E88, 0x2EC8}) list.add("RawLongs", offset, 4);
  list.add("RawFlags", 0x3BFA, 2);
  for (int offset = 0x3BD6; offset <= 0x3BE7; ++offset) list.add("RawFlags", offset, 2);
  list.add("RawFlags", 0x0B71, 2);
  list.add("RawFlags", 0x32F8, 2);
  list.add("RawText3100", 0x3100, 37);
  list.add("RawText3000", 0x3000, 96);
  return list;
}

struct Extent {
  std::uint32_t begin;
  std::uint32_t end;
};

/// The least extent that holds all reads.
constexpr Extent extentOf(std::span<const SnapshotRead> reads) {
  Extent extent{reads.front().offset, 0};
  for (const SnapshotRead& read : reads) {
    extent.begin = std::min<std::uint32_t>(extent.begin, read.offset);
    extent.end = std::max<std::uint32_t>(extent.end, read.offset + std::uint32_t{read.size});
  }
  return extent;
}

}  // namespace snapshot_detail

/// All that one poll fetches, but for the autopilot block, whose offset is a setting.
inline constexpr auto SnapshotReads = snapshot_detail::makeReads().reads;
static_assert(snapshot_detail::makeReads().count == SnapshotReads.size());

/// The raw bytes of one poll, kept at their offsets; what no read fetches stays zero.
class Snapshot {
 public:
  static constexpr std::uint32_t RawApBlockSize = 16;
  static constexpr std::uint32_t RawBlockEnd = 0x0264 + 4352;
  static constexpr std::uint32_t RawText3000End = 0x3000 + 96;

  /// In one piece: less than the many reads would cost by themselves. X-Plane's poll reads nothing
  /// outside.
  void clear() {
    constexpr auto Whole = snapshot_detail::extentOf(SnapshotReads);
    std::memset(at(Whole.begin), 0, Whole.end - Whole.begin);
    apBlock_.fill(std::byte{0});
  }

  std::byte* at(std::uint32_t offset) { return &bytes_[offset]; }
  std::byte* RawApBlock() { return apBlock_.data(); }

  std::uint8_t u8(std::uint32_t offset) const { return load<std::uint8_t>(&bytes_[offset]); }
  std::uint16_t u16(std::uint32_t offset) const { return load<std::uint16_t>(&bytes_[offset]); }
  std::uint32_t u32(std::uint32_t offset) const { return load<std::uint32_t>(&bytes_[offset]); }
  std::int16_t i16(std::uint32_t offset) const { return load<std::int16_t>(&bytes_[offset]); }
  std::int32_t i32(std::uint32_t offset) const { return load<std::int32_t>(&bytes_[offset]); }
  double f64(std::uint32_t offset) const { return load<double>(&bytes_[offset]); }
  std::uint16_t apHeadingWord() const { return load<std::uint16_t>(apBlock_.data()); }

  /// The characters from `offset` up to the first 0 byte or `end`, blanks dropped.
  std::string text(std::uint32_t offset, std::uint32_t end) const {
    std::string result;
    for (; offset < end && u8(offset) != 0; ++offset)
      if (const char c = static_cast<char>(u8(offset)); c != ' ') result += c;
    return result;
  }
  /// `count` characters as they stand.
  std::string characters(std::uint32_t offset, std::size_t count) const {
    return std::string(reinterpret_cast<const char*>(&bytes_[offset]), count);
  }

 private:
  std::array<std::byte, 0x10000> bytes_{};
  std::array<std::byte, RawApBlockSize> apBlock_{};
};

}  // namespace vorlent
