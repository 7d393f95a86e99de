#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/RecorderLink.h"
#include "recording/Event.h"

namespace vorlent {

/// A request of a read of four bytes at 0560, a write of two at 0BC8 and a read of three at 3364.
inline std::shared_ptr<const recorded::Request> sampleRequest() {
  return std::make_shared<const recorded::Request>(
      recorded::Request{{false, 0x0560, 4}, {true, 0x0BC8, 2}, {false, 0x3364, 3}});
}

inline recorded::Exchanged sampleExchange(const std::string& read) {
  recorded::Exchanged exchange;
  exchange.request = sampleRequest();
  exchange.written = "\x12\x34";
  exchange.read = read;
  exchange.answered = true;
  exchange.reply = 1;
  return exchange;
}

/// At least one event of each kind that has a time of its own.
inline std::vector<recorded::Event> sampleEvents() {
  using namespace recorded;
  Exchanged late;
  late.request = sampleRequest();
  late.written = "\x12\x34";
  late.lastError = 1460;
  Exchanged damaged = late;
  damaged.answered = true;
  damaged.reply = -5;
  damaged.damaged = std::string("\x01\x00\x02", 3);
  return {{10, TimerTicked{3}},
          {10, sampleExchange("abcdefg")},
          {70'010, sampleExchange("bbcdeff")},
          {70'020, sampleExchange(std::string("\x00\x00\x00\x00\xFF\xFF\xFF", 7))},
          {70'021, late},
          {70'022, damaged},
          {80'000, DatagramCame{1, "127.0.0.1", 40'000, "p A 1 8000"}},
          {80'001, DatagramContinued{1}},
          {80'002, HandMoved{Deed::Press, "frmMainClient", "cmdStop", ""}},
          {80'003, Answered{Call::TickCount, 4'294'967'295, ""}},
          {80'003, Answered{Call::Obstacle, -1, std::string("a\0b", 3)}},
          {80'004, Raised{Call::Bind, 10'048, "Address is in use"}},
          {90'000, StatusShown{1, "ready start"}},
          {90'001, BoxShown{1, "Vorlent", "You can only run 1 Vorlent at a time"}},
          {90'002, SessionChanged{0, SessionChanged::What::Greeted, "127.0.0.1", 40'000}},
          {90'003, Dropped{12}},
          {31'000'000, TimerTicked{0}},
          {31'000'001, Ended{1}}};
}

/// What stands before all others.
inline std::vector<recorded::Event> sampleStart() {
  using namespace recorded;
  return {{0, Started{"1.0", "2026-11-22 13:16:00"}},
          {0, FileKept{"Cockpits/737-700/Flaps.cfg", 7, true, "1,2,5\r\n"}},
          {0, FileKept{"Cockpits/737-700/sound/bump.wav", 70'000, false, ""}},
          {0, FileKept{"Vorlent.ini", 0, true, ""}}};
}

/// Takes as much as it is told to.
class FakeRecorderLink : public RecorderLink {
 public:
  std::size_t send(std::string_view bytes) override {
    const std::size_t count = std::min(bytes.size(), room_bytes);
    room_bytes -= count;
    taken += bytes.substr(0, count);
    return count;
  }
  bool lost() override { return isLost; }
  std::optional<std::string> news() override { return std::exchange(sentence, std::nullopt); }
  void end(std::string_view rest) override {
    taken += rest;
    ended = true;
  }

  std::size_t room_bytes = std::string::npos;
  std::string taken;
  std::optional<std::string> sentence;
  bool isLost = false;
  bool ended = false;
};

}  // namespace vorlent
