#include "recording/eventBytes.h"

#include <gtest/gtest.h>

#include "recording/samples.h"
#include "support/raisedBy.h"

namespace vorlent::recorded {
namespace {

RequestOf onlySampleRequest() {
  return [](std::uint64_t number) { return number == 7 ? sampleRequest() : nullptr; };
}

std::string bytesOf(const Event& event, std::int64_t before_us = 0) {
  std::string bytes;
  putEvent(bytes, event, before_us, 7);
  return bytes;
}

Event eventOf(std::string_view bytes, std::int64_t before_us = 0) {
  ByteReader reader(bytes);
  std::uint64_t request = 0;
  return takeEvent(reader, before_us, onlySampleRequest(), request);
}

int faultOf(const std::string& bytes) {
  return raisedBy([&] { eventOf(bytes); });
}

TEST(EventBytes, EveryKindComesBackAsItWas) {
  for (const Event& event : sampleEvents()) EXPECT_EQ(eventOf(bytesOf(event)), event);
  for (const Event& event : sampleStart()) EXPECT_EQ(eventOf(bytesOf(event)), event);
}

TEST(EventBytes, AreKindTimeAndFields) {
  // 2 is a tick; 300 us in two times seven bits are 0x2C and 2; then the timer.
  EXPECT_EQ(bytesOf({1300, TimerTicked{5}}, 1000), std::string("\x02\xAC\x02\x05", 4));
  // 6 is an answer, 2 a sleep; 100 ms with the sign below are 200, seven bits at a time; no text.
  EXPECT_EQ(bytesOf({0, Answered{Call::Sleep, 100, ""}}),
            std::string("\x06\x00\x02\xC8\x01\x00", 6));
  EXPECT_EQ(bytesOf({0, Ended{-1}}), std::string("\x0D\x00\x01", 3));
}

TEST(EventBytes, AnExchangeHasTheNumberOfItsRequest) {
  const std::string bytes = bytesOf({0, sampleExchange("abcdefg")});
  EXPECT_EQ(bytes.substr(0, 3), std::string("\x08\x00\x07", 3));
  std::uint64_t request = 0;
  ByteReader reader(bytes);
  takeEvent(reader, 0, onlySampleRequest(), request);
  EXPECT_EQ(request, 7U);
}

TEST(EventBytes, WhatEndsTooEarlyIsRefused) {
  for (const Event& event : sampleEvents()) {
    const std::string bytes = bytesOf(event);
    for (std::size_t size = 0; size < bytes.size(); ++size)
      EXPECT_EQ(faultOf(bytes.substr(0, size)), RuntimeError::InputPastEnd) << size;
  }
}

TEST(EventBytes, WhatIsNoneIsRefused) {
  EXPECT_EQ(faultOf(std::string("\x0E\x00\x00", 3)), RuntimeError::InputPastEnd);  // no such kind
  const std::string call("\x06\x00\x7F\x00\x00", 5);                               // no such call
  EXPECT_EQ(faultOf(call), RuntimeError::InputPastEnd);
  const std::string timer("\x02\x00\xFF\xFF\xFF\xFF\x1F", 7);  // above 32 bits
  EXPECT_EQ(faultOf(timer), RuntimeError::InputPastEnd);
  const std::string endless(12, '\xFF');
  EXPECT_EQ(faultOf(endless), RuntimeError::InputPastEnd);
}

TEST(EventBytes, AnExchangeThatDoesNotFitItsRequestIsRefused) {
  EXPECT_EQ(faultOf(bytesOf({0, sampleExchange("abcdef")})), RuntimeError::InputPastEnd);
  Exchanged unwritten = sampleExchange("abcdefg");
  unwritten.written = "x";
  EXPECT_EQ(faultOf(bytesOf({0, unwritten})), RuntimeError::InputPastEnd);
  Exchanged unanswered = sampleExchange("abcdefg");
  unanswered.answered = false;
  EXPECT_EQ(faultOf(bytesOf({0, unanswered})), RuntimeError::InputPastEnd);
  std::string unknown = bytesOf({0, sampleExchange("abcdefg")});
  unknown[2] = 8;
  EXPECT_EQ(faultOf(unknown), RuntimeError::InputPastEnd);
}

TEST(RequestText, NamesKindOffsetAndWidth) {
  EXPECT_EQ(textOf(*sampleRequest()), "r0560:4 w0BC8:2 r3364:3");
  EXPECT_EQ(textOf({{true, 0x12345, 8}}), "w12345:8");
  EXPECT_EQ(requestOf("r0560:4 w0BC8:2 r3364:3"), *sampleRequest());
  EXPECT_EQ(requestOf(""), Request{});
}

TEST(RequestText, WhatIsNoneIsRefused) {
  for (const std::string text : {"r", "x0560:4", "r0560", "r0560:", "r:4", "r0560:4,r0560:4",
                                 "r0560:4 ", "r0560:40000", "r0560:20000 r0560:20000"})
    EXPECT_EQ(raisedBy([&] { requestOf(text); }), RuntimeError::InputPastEnd) << text;
}

TEST(RequestBytes, ComeBackAsTheyWere) {
  std::string bytes;
  putRequest(bytes, *sampleRequest());
  ByteReader reader(bytes);
  EXPECT_EQ(takeRequest(reader), *sampleRequest());
  EXPECT_TRUE(reader.atEnd());
}

}  // namespace
}  // namespace vorlent::recorded
