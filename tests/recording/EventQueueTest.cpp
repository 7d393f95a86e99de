#include "recording/EventQueue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "recording/EventStream.h"
#include "recording/samples.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

using namespace recorded;

std::vector<Event> eventsIn(const std::string& bytes) {
  EventStream stream;
  stream.add(bytes);
  std::vector<Event> events;
  while (auto event = stream.next()) events.push_back(*event);
  return events;
}

TEST(EventQueue, WhatItSendsIsReadAgain) {
  FakeRecorderLink link;
  EventQueue queue(link);
  std::vector<Event> all = sampleStart();
  for (const Event& event : sampleEvents()) all.push_back(event);
  for (const Event& event : all) queue.add(event);
  EXPECT_EQ(link.taken, "");
  queue.flush();
  EXPECT_EQ(eventsIn(link.taken), all);
}

TEST(EventQueue, SendsByItselfWhenThereIsAPortion) {
  FakeRecorderLink link;
  EventQueue queue(link);
  const Event event{0, StatusShown{1, std::string(1000, 'x')}};
  for (int i = 0; i < 130; ++i) queue.add(event);  // 130 of 1008 bytes: below 131072
  EXPECT_EQ(link.taken, "");
  queue.add(event);
  EXPECT_EQ(eventsIn(link.taken).size(), 131U);
}

TEST(EventQueue, KeepsWhatIsNotTakenAndSendsItLater) {
  FakeRecorderLink link;
  EventQueue queue(link);
  for (const Event& event : sampleEvents()) queue.add(event);
  while (eventsIn(link.taken).size() < sampleEvents().size()) {
    link.room_bytes = 1;
    queue.flush();
    ASSERT_EQ(link.room_bytes, 0U);
  }
  EXPECT_EQ(eventsIn(link.taken), sampleEvents());
}

TEST(EventQueue, DropsWhatComesBehindTooMuchAndTellsHowMany) {
  FakeRecorderLink link;
  link.room_bytes = 0;
  EventQueue queue(link, 1000);
  const Event large{1, StatusShown{1, std::string(1000, 'x')}};
  queue.add(large);
  for (int i = 0; i < 5; ++i) queue.add({2, TimerTicked{1}});
  link.room_bytes = std::string::npos;
  queue.flush();
  queue.add({3, sampleExchange("abcdefg")});
  queue.flush();
  const std::vector<Event> expected{large, {3, Dropped{5}}, {3, sampleExchange("abcdefg")}};
  EXPECT_EQ(eventsIn(link.taken), expected);
}

TEST(EventQueue, TellsAtItsEndHowManyItDroppedSinceTheLast) {
  FakeRecorderLink link;
  link.room_bytes = 0;
  EventQueue queue(link, 1000);
  const Event large{1, StatusShown{1, std::string(1000, 'x')}};
  queue.add(large);
  for (int i = 0; i < 5; ++i) queue.add({2, TimerTicked{1}});
  queue.end();
  const std::vector<Event> expected{large, {1, Dropped{5}}};
  EXPECT_EQ(eventsIn(link.taken), expected);
}

TEST(EventQueue, GivesTheRestAtItsEnd) {
  FakeRecorderLink link;
  link.room_bytes = 3;
  EventQueue queue(link);
  for (const Event& event : sampleEvents()) queue.add(event);
  queue.flush();
  queue.end();
  EXPECT_TRUE(link.ended);
  EXPECT_EQ(eventsIn(link.taken), sampleEvents());
}

TEST(EventStream, TakesItsBytesInAnyPieces) {
  FakeRecorderLink link;
  EventQueue queue(link);
  for (const Event& event : sampleEvents()) queue.add(event);
  queue.flush();
  EventStream stream;
  std::vector<Event> events;
  for (const char byte : link.taken) {
    stream.add(std::string_view(&byte, 1));
    while (auto event = stream.next()) events.push_back(*event);
  }
  EXPECT_EQ(events, sampleEvents());
}

TEST(EventStream, WhatNoQueueSendsIsRefused) {
  for (const std::string bytes : {"\xFF\xFF\xFF\xFF\xFF\xFF",
                                  "\x03"
                                  "e\x7F\x7F",
                                  "\x02"
                                  "r\x01"})
    EXPECT_EQ(raisedBy([&] { eventsIn(bytes); }), RuntimeError::InputPastEnd);
}

}  // namespace
}  // namespace vorlent
