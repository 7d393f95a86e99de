#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "recording/ReadDifferences.h"
#include "recording/eventBytes.h"

namespace vorlent::recorded {

/// The events of a page, one behind the other, before they are compressed: each with the time
/// since the one before, the first since `first_us`, and with its reads as differences.
struct Page {
  bool whole = true;
  std::int64_t first_us = 0;
  std::int64_t last_us = 0;
  std::uint64_t events = 0;
  std::string bytes;
};

/// Puts events into pages.
class PageWriter {
 public:
  /// Reading can begin at least so often.
  static constexpr std::int64_t MostBetweenWholePages_us = 30'000'000;

  /// `request` is the number of an exchange's request.
  void add(const Event& event, std::uint64_t request = 0);
  const Page& page() const { return page_; }
  /// Ends the page. The next one is whole if `whole` or by the time.
  void next(bool whole = false);

 private:
  void begin(std::int64_t time_us);

  Page page_;
  ReadDifferences differences_;
  std::int64_t lastWhole_us_ = 0;
};

/// Takes them out again, one page after the other.
class PageReader {
 public:
  /// Raises RuntimeError InputPastEnd for bytes that are no page, or do not fit what the page says
  /// of itself.
  std::vector<Event> read(const Page& page, const RequestOf& requestOf);

 private:
  ReadDifferences differences_;
};

}  // namespace vorlent::recorded
