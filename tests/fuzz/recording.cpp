#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/RuntimeError.h"
#include "recording/EventStream.h"
#include "recording/Page.h"
#include "require.h"

// An input is a page of a recording before it is compressed, and then what a server sends to its
// recorder: whatever is in it, it is read or refused, and what was read is written to the same
// page.

namespace {

using namespace vorlent;
using namespace vorlent::recorded;

std::shared_ptr<const Request> fuzzRequest(std::uint64_t number) {
  static const auto request = std::make_shared<const Request>(
      Request{{false, 0x0560, 4}, {true, 0x0BC8, 2}, {false, 1, 3}});
  return number == 1 ? request : nullptr;
}

std::vector<Event> readPage(std::string_view bytes) {
  // How many events there are and when the last was must be known beforehand; so they are counted.
  Page page{true, 0, 0, 0, std::string(bytes)};
  ByteReader reader(page.bytes);
  while (!reader.atEnd()) {
    std::uint64_t request = 0;
    page.last_us = takeEvent(reader, page.last_us, fuzzRequest, request).time_us;
    ++page.events;
  }
  return PageReader().read(page, fuzzRequest);
}

void tryPage(std::string_view bytes) {
  const std::vector<Event> events = readPage(bytes);
  PageWriter writer;
  for (const Event& event : events)
    writer.add(event, std::holds_alternative<Exchanged>(event.what) ? 1 : 0);
  const std::vector<Event> again = PageReader().read(writer.page(), fuzzRequest);
  VORLENT_REQUIRE(again == events);
}

void tryStream(std::string_view bytes) {
  EventStream stream;
  stream.add(bytes);
  while (stream.next()) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  for (const auto attempt : {tryPage, tryStream}) {
    try {
      attempt(bytes);
    } catch (const RuntimeError& fault) {
      VORLENT_REQUIRE(fault.number() == RuntimeError::InputPastEnd);
    }
  }
  return 0;
}
