#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "recording/Event.h"

namespace vorlent {

/// A write to the simulator that is not what it was.
struct WriteDifference {
  std::int64_t time_us = 0;
  std::uint32_t offset = 0;
  std::optional<std::string> then;  ///< the bytes; nothing was written then
  std::optional<std::string> now;   ///< the bytes; nothing is written now
  bool operator==(const WriteDifference&) const = default;
};

/// As a line for the user: "12.345 s  0BC0  then 12FF  now 13FF".
std::string textOf(const WriteDifference& difference);

/// Holds the writes of a server against those that were recorded.
class WriteComparison {
 public:
  /// So many of the differences are kept, the first ones.
  static constexpr std::size_t MostKept = 20;

  /// The same request, with what was written then and is now.
  void compare(std::int64_t time_us, const recorded::Request& request, const std::string& then,
               const std::string& now);
  void onlyThen(std::int64_t time_us, const recorded::Request& request, const std::string& then);
  void onlyNow(std::int64_t time_us, const recorded::Request& request, const std::string& now);

  /// How many were recorded.
  std::uint64_t recordedWrites() const { return recordedWrites_; }
  std::uint64_t differences() const { return differences_; }
  const std::vector<WriteDifference>& first() const { return first_; }

 private:
  void add(WriteDifference difference);

  std::uint64_t recordedWrites_ = 0;
  std::uint64_t differences_ = 0;
  std::vector<WriteDifference> first_;
};

}  // namespace vorlent
