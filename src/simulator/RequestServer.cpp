#include "simulator/RequestServer.h"

#include <algorithm>
#include <atomic>
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

/// The block belongs to another process. The fence keeps the compiler from fetching a field a
/// second time after it was checked.
template <class T>
T fetch(const std::byte* from) {
  const T value = load<T>(from);
  std::atomic_signal_fence(std::memory_order_seq_cst);
  return value;
}

}  // namespace

RequestServer::RequestServer(OffsetMemory& memory, Note note, Written written)
    : memory_(memory), note_(std::move(note)), written_(std::move(written)) {}

std::int32_t RequestServer::serve(std::span<std::byte> block) {
  const auto requests = collect(block);
  if (!requests) return Malformed;
  for (const Request& request : *requests) {
    if (request.isWrite)
      carryOutWrite(request.offset, request.data);
    else
      memory_.copyOut(request.offset, request.data);
  }
  return Good;
}

/// All records up to the closing zero; nothing at the first one that does not fit. There is room
/// for as many as a block holds, and their end is a local: fetch() makes members be read again.
std::optional<std::span<const RequestServer::Request>> RequestServer::collect(
    std::span<std::byte> block) {
  if (requests_.size() < block.size() / WriteHeaderSize)
    requests_.resize(block.size() / WriteHeaderSize);
  Request* end = requests_.data();
  std::size_t at = 0;
  while (block.size() - at >= IdSize) {
    const auto id = fetch<std::uint32_t>(&block[at]);
    if (id == RecordId::End) return std::span<const Request>(requests_.data(), end);
    if (id != RecordId::Read && id != RecordId::Write) return std::nullopt;
    const std::size_t header = id == RecordId::Read ? ReadHeaderSize : WriteHeaderSize;
    if (block.size() - at < header) return std::nullopt;
    const auto extent = fetch<Extent>(&block[at + IdSize]);
    at += header;
    if (extent.size > block.size() - at) return std::nullopt;
    if (!OffsetMemory::contains(extent.offset, extent.size)) return std::nullopt;
    *end++ = {id == RecordId::Write, extent.offset, block.subspan(at, extent.size)};
    at += extent.size;
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
