#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "recording/Event.h"

namespace vorlent {

class RecorderLink;

/// Events on their way to whoever writes them. Those that he has no time for wait here; when too
/// many wait, the next ones are dropped, and a Dropped stands in their place.
///
/// On the way each event stands behind its length (recording/EventStream.h reads them), and a
/// request before the first event that has its number.
class EventQueue {
 public:
  static constexpr std::size_t Capacity_bytes = 4U << 20;
  /// So many are not kept for the next flush(); more than a second of a flight.
  static constexpr std::size_t Portion_bytes = 128U << 10;

  explicit EventQueue(RecorderLink& link, std::size_t capacity_bytes = Capacity_bytes)
      : link_(link), capacity_bytes_(capacity_bytes) {}

  /// An event that is larger than the capacity is taken when no more than that waits.
  void add(const recorded::Event& event);
  /// Sends what the other side takes now.
  void flush();
  /// Sends the rest, which may take up to two seconds.
  void end();

 private:
  void put(const recorded::Event& event);
  void putFrame(char kind);
  std::uint64_t numberOf(const std::shared_ptr<const recorded::Request>& request);
  std::size_t waiting_bytes() const { return bytes_.size() - sent_; }

  RecorderLink& link_;
  std::size_t capacity_bytes_;
  std::string bytes_;
  std::size_t sent_ = 0;  ///< of them
  std::string frame_;     ///< the one that is being made
  std::map<recorded::Request, std::uint64_t> requests_;
  std::shared_ptr<const recorded::Request> lastRequest_;  ///< mostly the next is the same
  std::uint64_t lastNumber_ = 0;                          ///< of it
  std::int64_t last_us_ = 0;
  std::uint64_t dropped_ = 0;  ///< and not told yet
};

}  // namespace vorlent
