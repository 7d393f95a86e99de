#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "display/Command.h"
#include "display/Greeting.h"
#include "display/RecordReader.h"
#include "platform/EventLoop.h"
#include "web/RateLimit.h"

namespace vorlent {

/// One browser's connection.
class Page {
 public:
  virtual ~Page() = default;
  virtual void send(const std::string& message) = 0;
  /// So much waits to be sent that more would only be late.
  virtual bool isBehind() const = 0;
  /// Closes the connection later in this turn; PageHub::leave() follows.
  virtual void end() = 0;
};

/// Between one display session and any number of pages: each record goes to all of them as what has
/// changed, and each of their commands to the server, if it may go there.
class PageHub {
 public:
  static constexpr std::size_t MostPages = 32;
  static constexpr int CommandsAtOnce = 60;
  static constexpr int CommandsPerSecond = 30;
  /// A page that takes nothing for so many records is given up: half a minute at 20 a second.
  static constexpr int MostRecordsBehind = 600;

  /// Sends commands to the server; false when they did not leave this machine.
  using SendCommands = std::function<bool(std::span<const Command>)>;

  PageHub(EventLoop& loop, SendCommands sendCommands);

  /// Tells the page all that is known; false when there are MostPages already.
  bool join(Page& page);
  void leave(Page& page);
  /// A message of the page. What is wrong with it is told to that page.
  void take(Page& page, std::string_view message);

  void show(const Record& record);
  void show(const GreetingReply& reply);
  void showNotice(const std::string& notice);
  /// A message of planMessage().
  void showPlan(const std::string& message);

 private:
  struct Member {
    RateLimit limit;
    bool needsWhole = true;  ///< what it has is not the record before this one
    int behind = 0;          ///< records that it did not get
  };

  void give(Page& page, Member& member, const std::string& changes, const Record& record);
  void tellAll(const std::string& message);

  EventLoop& loop_;
  SendCommands sendCommands_;
  std::map<Page*, Member> pages_;
  std::optional<Record> record_;
  std::string aircraft_;
  std::string notice_;
  std::string plan_;
};

}  // namespace vorlent
