#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "display/DisplayClient.h"
#include "display/DisplayOptions.h"
#include "display/LivePage.h"
#include "display/Screen.h"
#include "platform/EventLoop.h"
#include "platform/UdpSocket.h"

namespace vorlent {

/// The display client as a program: shows what the session brings and sends what the user types.
class DisplayProgram {
 public:
  struct Output {
    bool terminal = false;  ///< draw a live page in place of lines
    std::function<void(std::string_view)> write;
    /// Where notices go in place of write() when one record is printed.
    std::function<void(std::string_view)> writeAside;
    /// Characters in a line of the terminal at the moment.
    std::function<std::size_t()> width = [] { return std::size_t{80}; };
    /// What stands before the line that is typed; empty when a line editor writes it.
    std::string prompt = Prompt;
  };
  static constexpr const char* Prompt = "> ";

  /// `addresses` are those of `options.host`. Raises RuntimeError when the options cannot be
  /// served, such as a host name of this machine that is none.
  DisplayProgram(EventLoop& loop, Network& network, const DisplayOptions& options,
                 const std::vector<std::string>& addresses, Output output);

  void start();
  /// A line of the user's: one command or more. What is wrong with it is told like a notice, and
  /// so is a server from which no record comes after it.
  void typed(const std::string& line);

 private:
  DisplayClient::Events events();
  void takeRecord(const Record& record);
  void takeReply(const GreetingReply& reply);
  void tell(const std::string& notice);
  void watchAge();
  void show();
  void draw();
  void endInTime();

  EventLoop& loop_;
  Output output_;
  bool print_;
  int run_s_;  ///< 0: without end
  std::uint32_t staleAfter_ms_;
  std::string machine_;  ///< whose share holds plan and tuning
  PageStatus status_;
  std::optional<Record> record_;
  std::uint32_t recordAt_ms_ = 0;
  std::optional<std::uint32_t> sentAt_ms_;  ///< a command that no record has followed yet
  bool changed_ = true;
  DisplayClient client_;
  std::optional<Screen> screen_;
  std::unique_ptr<Timer> showTimer_;
  std::unique_ptr<Timer> endTimer_;
};

}  // namespace vorlent
