#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "recording/Event.h"

namespace vorlent::recorded {

/// What is read again and again differs little from time to time: the bytes of a request's reads
/// as differences to those of the same request's last time. A read of 1, 2, 4 or 8 bytes is one
/// number, whose difference wraps around; of others each byte is one. Before the first time all of
/// them are 0.
class ReadDifferences {
 public:
  /// `request` by its number; `read` has the bytes of all its reads, and becomes the differences.
  void take(std::uint64_t number, const Request& request, std::string& read);
  /// The other way.
  void undo(std::uint64_t number, const Request& request, std::string& differences);
  /// As if nothing had been read yet.
  void clear() { last_.clear(); }

 private:
  std::map<std::uint64_t, std::string> last_;  ///< by the request's number
};

}  // namespace vorlent::recorded
