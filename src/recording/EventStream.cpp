#include "recording/EventStream.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "recording/eventBytes.h"

namespace vorlent {

using namespace recorded;

namespace {

constexpr std::uint64_t MostOfAFrame_bytes = 32U << 20;
constexpr int MostOfALength_bytes = 5;
constexpr char MoreFollows = '\x80';

/// Whether the number at the start of the bytes is there as a whole.
bool hasNumber(std::string_view bytes) {
  const auto isLast = [](char byte) { return (byte & MoreFollows) == 0; };
  const auto end = bytes.begin() + std::min<std::ptrdiff_t>(std::ssize(bytes), MostOfALength_bytes);
  return std::find_if(bytes.begin(), end, isLast) != end || std::ssize(bytes) > MostOfALength_bytes;
}

}  // namespace

std::optional<std::string_view> EventStream::nextFrame() {
  const std::string_view rest = std::string_view(bytes_).substr(read_);
  if (!hasNumber(rest)) return std::nullopt;
  ByteReader reader(rest);
  const std::uint64_t size = reader.numberUpTo(MostOfAFrame_bytes);
  if (reader.left() < size) return std::nullopt;
  read_ = bytes_.size() - reader.left() + size;
  return reader.bytes(size);
}

std::optional<Event> EventStream::next() {
  while (const auto frame = nextFrame()) {
    ByteReader reader(*frame);
    if (reader.bytes(1).front() == RequestFrame) {
      requests_[requests_.size() + 1] = std::make_shared<const Request>(takeRequest(reader));
      continue;
    }
    std::uint64_t request = 0;
    const auto requestOf = [this](std::uint64_t number) {
      const auto found = requests_.find(number);
      return found == requests_.end() ? nullptr : found->second;
    };
    Event event = takeEvent(reader, last_us_, requestOf, request);
    last_us_ = event.time_us;
    return event;
  }
  bytes_.erase(0, read_);
  read_ = 0;
  return std::nullopt;
}

}  // namespace vorlent
