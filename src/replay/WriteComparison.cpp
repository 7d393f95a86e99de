#include "replay/WriteComparison.h"

#include <array>
#include <cstdio>
#include <utility>

namespace vorlent {
namespace {

/// Calls `take` with the offset and the bytes of each write.
template <class Take>
void forEachWrite(const recorded::Request& request, const std::string& written, const Take& take) {
  std::size_t at = 0;
  for (const recorded::Operation& operation : request) {
    if (!operation.write || at > written.size()) continue;
    take(operation.offset, written.substr(at, operation.size_bytes));
    at += operation.size_bytes;
  }
}

std::string hexBytes(const std::optional<std::string>& bytes) {
  if (!bytes) return "nothing";
  std::string text;
  for (const char byte : *bytes) {
    std::array<char, 3> pair{};
    std::snprintf(pair.data(), pair.size(), "%02X", static_cast<unsigned char>(byte));
    text += pair.data();
  }
  return text;
}

}  // namespace

std::string textOf(const WriteDifference& difference) {
  std::array<char, 64> place{};
  std::snprintf(place.data(), place.size(), "%.3f s  %04X",
                static_cast<double>(difference.time_us) / 1e6, difference.offset);
  return place.data() + ("  then " + hexBytes(difference.then)) + "  now " +
         hexBytes(difference.now);
}

void WriteComparison::compare(std::int64_t time_us, const recorded::Request& request,
                              const std::string& then, const std::string& now) {
  std::size_t at = 0;
  forEachWrite(request, then, [&](std::uint32_t offset, const std::string& recordedBytes) {
    ++recordedWrites_;
    const std::string bytes = now.substr(std::min(at, now.size()), recordedBytes.size());
    at += recordedBytes.size();
    if (bytes != recordedBytes) add({time_us, offset, recordedBytes, bytes});
  });
}

void WriteComparison::onlyThen(std::int64_t time_us, const recorded::Request& request,
                               const std::string& then) {
  forEachWrite(request, then, [&](std::uint32_t offset, const std::string& bytes) {
    ++recordedWrites_;
    add({time_us, offset, bytes, std::nullopt});
  });
}

void WriteComparison::onlyNow(std::int64_t time_us, const recorded::Request& request,
                              const std::string& now) {
  forEachWrite(request, now, [&](std::uint32_t offset, const std::string& bytes) {
    add({time_us, offset, std::nullopt, bytes});
  });
}

void WriteComparison::add(WriteDifference difference) {
  ++differences_;
  if (first_.size() < MostKept) first_.push_back(std::move(difference));
}

}  // namespace vorlent
