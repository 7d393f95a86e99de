#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "simulator/OffsetMemory.h"

namespace vorlent {

/// Carries out the requests that a client leaves in its shared block.
///
/// A block is a row of records without gaps, closed by a 32-bit zero. A read record is Id 1,
/// offset, size, destination (the requester's own, left alone) and `size` bytes of room; a write
/// record is Id 2, offset, size and `size` bytes of data. All header fields are 32 bits,
/// little-endian.
///
/// Nothing in the block is trusted: the other process may even change it during the work.
class RequestServer {
 public:
  using Note = std::function<void(const std::string& text)>;
  using Written = std::function<void(std::size_t offset, std::size_t size)>;

  static constexpr std::int32_t Good = 1;
  static constexpr std::int32_t Malformed = 0;

  /// The version of the interface and the simulator's number. Writes leave them as they are: a
  /// client leaves the version of its own library in their midst, and that is only noted.
  static constexpr std::size_t IdentityBegin = 0x3304;
  static constexpr std::size_t IdentityEnd = 0x330C;

  /// `note` is told of each write to the identity that was not carried out.
  /// `written` is told of what else was written, once it is in the memory.
  RequestServer(OffsetMemory& memory, Note note, Written written = {});

  /// Good when all records were carried out. Malformed, with nothing carried out, when a record has
  /// another Id, reaches beyond the block or beyond the memory, or the closing zero is missing.
  std::int32_t serve(std::span<std::byte> block);

 private:
  /// What a record asks for, read from the block once: from here on only checked copies are used.
  /// Small, as a poll has hundreds.
  struct Request {
    std::uint32_t offset;
    std::uint32_t size;
    std::uint32_t at;  ///< of the data, in the block
    bool isWrite;
  };

  std::optional<std::span<const Request>> collect(std::span<const std::byte> block);
  void carryOutWrite(std::size_t offset, std::span<const std::byte> data);
  void keep(std::size_t offset, std::span<const std::byte> data);

  OffsetMemory& memory_;
  Note note_;
  Written written_;
  std::vector<Request> requests_;
};

}  // namespace vorlent
