#include "recording/Page.h"

#include <utility>

#include "recording/Bytes.h"

namespace vorlent::recorded {

void PageWriter::begin(std::int64_t time_us) {
  page_.first_us = time_us;
  page_.last_us = time_us;
  if (time_us - lastWhole_us_ >= MostBetweenWholePages_us) page_.whole = true;
  if (!page_.whole) return;
  lastWhole_us_ = time_us;
  differences_.clear();
}

void PageWriter::add(const Event& event, std::uint64_t request) {
  if (page_.events == 0) begin(event.time_us);
  const auto* exchange = std::get_if<Exchanged>(&event.what);
  if (exchange != nullptr && !exchange->read.empty()) {
    Exchanged different = *exchange;
    differences_.take(request, *exchange->request, different.read);
    putEvent(page_.bytes, {event.time_us, std::move(different)}, page_.last_us, request);
  } else {
    putEvent(page_.bytes, event, page_.last_us, request);
  }
  page_.last_us = event.time_us;
  ++page_.events;
}

void PageWriter::next(bool whole) {
  page_ = Page();
  page_.whole = whole;
}

std::vector<Event> PageReader::read(const Page& page, const RequestOf& requestOf) {
  constexpr std::int64_t Latest_us = std::int64_t{1} << 56;
  if (page.first_us < 0 || page.first_us > Latest_us) refuseBytes();
  if (page.whole) differences_.clear();
  std::vector<Event> events;
  ByteReader bytes(page.bytes);
  std::int64_t time_us = page.first_us;
  while (!bytes.atEnd()) {
    std::uint64_t request = 0;
    Event event = takeEvent(bytes, time_us, requestOf, request);
    time_us = event.time_us;
    if (time_us > Latest_us) refuseBytes();
    auto* exchange = std::get_if<Exchanged>(&event.what);
    if (exchange != nullptr && !exchange->read.empty())
      differences_.undo(request, *exchange->request, exchange->read);
    events.push_back(std::move(event));
  }
  if (events.size() != page.events || time_us != page.last_us) refuseBytes();
  return events;
}

}  // namespace vorlent::recorded
