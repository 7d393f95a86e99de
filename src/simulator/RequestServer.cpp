#include "simulator/RequestServer.h"

#include <algorithm>
#include <atomic>
#include <type_traits>
#include <utility>

#include "base/text.h"

namespace vorlent {
namespace {

enum RecordId : std::uint32_t { End = 0, Read = 1, Write = 2 };

/// The fields behind the Id.
struct Extent {
  std::uint32_t offset;
  std::uint32_t size;
};

constexpr std::size_t IdSize = 4;
constexpr std::size_t ReadHeaderSize = 16;
constexpr std::size_t WriteHeaderSize = 12;
template <std::size_t Size>
using Header = std::integral_constant<std::size_t, Size>;

/// The block belongs to another process. The fence keeps the compiler from fetching a field a
/// second time after it was checked.
template <class T>
T fetch(const std::byte* from) {
  const T value = load<T>(from);
  std::atomic_signal_fence(std::memory_order_seq_cst);
  return value;
}

/// Whether the record's data, from `at` on, lies in the block, and what it asks for in the memory.
bool fits(const Extent& extent, std::span<const std::byte> block, std::size_t at) {
  return extent.size <= block.size() - at && OffsetMemory::contains(extent.offset, extent.size);
}

}  // namespace

RequestServer::RequestServer(OffsetMemory& memory, Note note, Written written)
    : memory_(memory), note_(std::move(note)), written_(std::move(written)) {}

std::int32_t RequestServer::serve(std::span<std::byte> block) {
  const auto requests = collect(block);
  if (!requests) return Malformed;
  for (const Request& request : *requests) {
    const std::span<std::byte> data = block.subspan(request.at, request.size);
    if (request.isWrite)
      carryOutWrite(request.offset, data);
    else
      memory_.copyOut(request.offset, data);
  }
  return Good;
}

/// All records up to the closing zero; nothing at the first one that does not fit. There is room
/// for as many as a block holds, and their end is a local: fetch() makes members be read again.
std::optional<std::span<const RequestServer::Request>> RequestServer::collect(
    std::span<const std::byte> block) {
  if (requests_.size() < block.size() / WriteHeaderSize)
    requests_.resize(block.size() / WriteHeaderSize);
  Request* end = requests_.data();
  std::size_t at = 0;
  // With the header's size a constant the next record's place hangs on one number of the block.
  const auto take = [&](auto headerSize, bool isWrite) {
    if (block.size() - at < headerSize) return false;
    const auto extent = fetch<Extent>(&block[at + IdSize]);
    at += headerSize;
    if (!fits(extent, block, at)) return false;
    *end++ = {extent.offset, extent.size, static_cast<std::uint32_t>(at), isWrite};
    at += extent.size;
    return true;
  };
  while (block.size() - at >= IdSize) {
    const auto id = fetch<std::uint32_t>(&block[at]);
    if (id == RecordId::End) return std::span<const Request>(requests_.data(), end);
    const bool taken = id == RecordId::Read
                           ? take(Header<ReadHeaderSize>(), false)
                           : id == RecordId::Write && take(Header<WriteHeaderSize>(), true);
    if (!taken) return std::nullopt;
  }
  return std::nullopt;
}

void RequestServer::carryOutWrite(std::size_t offset, std::span<const std::byte> data) {
  const std::size_t end = offset + data.size();
  const std::size_t headEnd = std::clamp(IdentityBegin, offset, end);
  const std::size_t tailBegin = std::clamp(IdentityEnd, offset, end);
  keep(offset, data.first(headEnd - offset));
  keep(tailBegin, data.subspan(tailBegin - offset));
  if (headEnd < tailBegin)
    note_("Write of " + std::to_string(tailBegin - headEnd) + " bytes to offset 0x" +
          hexText(static_cast<std::uint32_t>(headEnd)) +
          " not carried out: the version stands there");
}

void RequestServer::keep(std::size_t offset, std::span<const std::byte> data) {
  memory_.copyIn(offset, data);
  if (written_ && !data.empty()) written_(offset, data.size());
}

}  // namespace vorlent
