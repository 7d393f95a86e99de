#include "recording/Page.h"

#include <gtest/gtest.h>

#include "recording/samples.h"
#include "support/raisedBy.h"

namespace vorlent::recorded {
namespace {

RequestOf pageRequests() {
  return [](std::uint64_t number) { return number == 1 ? sampleRequest() : nullptr; };
}

std::uint64_t pageRequestOf(const Event& event) {
  return std::holds_alternative<Exchanged>(event.what) ? 1 : 0;
}

TEST(ReadDifferences, AreThoseOfWholeNumbersAndOfSingleBytes) {
  ReadDifferences differences;
  const Request request = *sampleRequest();
  // The first read is one number of four bytes, the second three bytes.
  std::string read("\xFF\x00\x00\x00\x01\x02\x03", 7);
  differences.take(1, request, read);
  EXPECT_EQ(read, std::string("\xFF\x00\x00\x00\x01\x02\x03", 7));
  read = std::string("\x01\x01\x00\x00\x00\x02\x05", 7);  // 255 to 257 is 2; 1 to 0 is 255
  differences.take(1, request, read);
  EXPECT_EQ(read, std::string("\x02\x00\x00\x00\xFF\x00\x02", 7));
}

TEST(ReadDifferences, AreOfEachRequestOfItsOwn) {
  ReadDifferences differences;
  std::string read = "aaaaaaa";
  differences.take(1, *sampleRequest(), read);
  read = "bbbbbbb";
  differences.take(2, *sampleRequest(), read);
  EXPECT_EQ(read, "bbbbbbb");
}

/// Pages of at most so many events.
std::vector<Page> pagesOf(const std::vector<Event>& events, std::size_t most) {
  PageWriter writer;
  std::vector<Page> pages;
  for (const Event& event : events) {
    writer.add(event, pageRequestOf(event));
    if (writer.page().events < most) continue;
    pages.push_back(writer.page());
    writer.next();
  }
  if (writer.page().events > 0) pages.push_back(writer.page());
  return pages;
}

TEST(Pages, ComeBackAsTheyWereHoweverTheEventsAreSpread) {
  for (const std::size_t most : {1U, 2U, 3U, 100U}) {
    PageReader reader;
    std::vector<Event> events;
    for (const Page& page : pagesOf(sampleEvents(), most))
      for (const Event& event : reader.read(page, pageRequests())) events.push_back(event);
    EXPECT_EQ(events, sampleEvents()) << most;
  }
}

TEST(Pages, BeginWithAWholeOneAndHaveAnotherAfterThirtySeconds) {
  const std::vector<Page> pages = pagesOf(sampleEvents(), 1);
  ASSERT_EQ(pages.size(), 18U);
  EXPECT_TRUE(pages[0].whole);
  for (int i = 1; i <= 15; ++i) EXPECT_FALSE(pages[static_cast<std::size_t>(i)].whole) << i;
  EXPECT_TRUE(pages[16].whole);
  EXPECT_FALSE(pages[17].whole);
}

TEST(Pages, CanBeReadFromAnyWholeOneOn) {
  PageWriter writer;
  writer.add({1, sampleExchange("aaaaaaa")}, 1);
  writer.next(true);
  writer.add({2, sampleExchange("bbbbbbb")}, 1);
  PageReader reader;
  const std::vector<Event> events = reader.read(writer.page(), pageRequests());
  ASSERT_EQ(events.size(), 1U);
  EXPECT_EQ(events[0], (Event{2, sampleExchange("bbbbbbb")}));
}

TEST(Pages, ThatAreNotWhatTheySayAreRefused) {
  const Page page = pagesOf(sampleEvents(), 100)[0];
  const auto faultOf = [](const Page& damaged) {
    return raisedBy([&] { PageReader().read(damaged, pageRequests()); });
  };
  Page longer = page;
  ++longer.events;
  EXPECT_EQ(faultOf(longer), RuntimeError::InputPastEnd);
  Page later = page;
  ++later.last_us;
  EXPECT_EQ(faultOf(later), RuntimeError::InputPastEnd);
  Page earlier = page;
  earlier.first_us = -1;
  EXPECT_EQ(faultOf(earlier), RuntimeError::InputPastEnd);
  Page cut = page;
  cut.bytes.pop_back();
  EXPECT_EQ(faultOf(cut), RuntimeError::InputPastEnd);
}

}  // namespace
}  // namespace vorlent::recorded
