#include "display/DisplayProgram.h"

#include <algorithm>
#include <utility>

#include "base/RuntimeError.h"
#include "display/format.h"
#include "display/recordText.h"
#include "display/serverSettings.h"

namespace vorlent {
namespace {

constexpr int PageInterval_ms = 100;
constexpr int LineInterval_ms = 1000;

DisplayClient::Settings settingsOf(const DisplayOptions& options,
                                   const std::vector<std::string>& addresses, Network& network) {
  return serverSettings({options.host, options.port, options.interval_ms, options.name}, addresses,
                        network);
}

}  // namespace

DisplayProgram::DisplayProgram(EventLoop& loop, Network& network, const DisplayOptions& options,
                               const std::vector<std::string>& addresses, Output output)
    : loop_(loop),
      output_(std::move(output)),
      print_(options.print),
      run_s_(options.seconds.value_or(0)),
      // Two intervals, and never a shorter time than the page shows.
      staleAfter_ms_(
          static_cast<std::uint32_t>(2 * std::max(options.interval_ms, PageInterval_ms))),
      client_(loop, network, settingsOf(options, addresses, network), events()),
      showTimer_(loop.createTimer([this] { show(); })),
      endTimer_(loop.createTimer([this] { endInTime(); })) {
  const DisplayClient::Settings settings = settingsOf(options, addresses, network);
  status_.server = endpointText(settings.server);
  machine_ = settings.name;
}

DisplayClient::Events DisplayProgram::events() {
  return {[this](const Record& record) { takeRecord(record); },
          [this](const GreetingReply& reply) { takeReply(reply); },
          [this](const std::string& notice) { tell(notice); }};
}

void DisplayProgram::start() {
  if (output_.terminal && !print_) {
    screen_.emplace(output_.write);
    screen_->prompt(PageHeight + 1, output_.prompt);
  }
  if (!print_) showTimer_->start(screen_ ? PageInterval_ms : LineInterval_ms);
  if (run_s_ > 0) endTimer_->start(run_s_ * 1000);
  client_.start();
}

void DisplayProgram::typed(const std::string& line) {
  if (screen_) screen_->prompt(PageHeight + 1, output_.prompt);
  if (line.find_first_not_of(" \t\r") != std::string::npos) {
    try {
      if (client_.send(readCommands(line))) {
        sentAt_ms_ = loop_.tickCount_ms();
        tell("sent: " + line);
        client_.askForDropped();
      }
    } catch (const RuntimeError& error) {
      tell("not sent: " + error.description());
    }
  }
  // The end of the line may have moved the page.
  if (screen_) draw();
}

void DisplayProgram::takeRecord(const Record& record) {
  ++status_.recordCount;
  changed_ = true;
  record_ = record;
  recordAt_ms_ = loop_.tickCount_ms();
  sentAt_ms_.reset();
  if (!print_ || status_.recordCount > 1) return;
  output_.write(fieldList(record));
  loop_.end(0);
}

/// Whether the machine's share has the autopilot's tuning is a question of its own.
void DisplayProgram::takeReply(const GreetingReply& reply) {
  status_.folder = reply.folder;
  tell("aircraft folder \"" + reply.folder + "\", " + std::to_string(reply.engineCount) +
       " engines; tuning from machine \"" + machine_ + "\" (--name)");
  client_.askForTuning();
}

void DisplayProgram::tell(const std::string& notice) {
  status_.message = notice;
  if (screen_)
    changed_ = true;
  else
    (print_ ? output_.writeAside : output_.write)(printable(notice) + "\n");
}

void DisplayProgram::watchAge() {
  const std::uint32_t now_ms = loop_.tickCount_ms();
  if (sentAt_ms_ && now_ms - *sentAt_ms_ > staleAfter_ms_) {
    sentAt_ms_.reset();
    tell("the server does not answer: no record has come since a command was sent");
  }
  const std::uint32_t age_ms = now_ms - recordAt_ms_;
  status_.stale_s.reset();
  if (record_ && age_ms > staleAfter_ms_) status_.stale_s = age_ms / 1000.0;
}

void DisplayProgram::show() {
  watchAge();
  const bool changed = std::exchange(changed_, false);
  if (screen_ && (changed || status_.stale_s))
    draw();
  else if (!screen_ && changed && record_)
    output_.write(reportLine(*record_) + "\n");
}

/// A character behind the last column would begin a new line on some terminals.
void DisplayProgram::draw() {
  const std::size_t columns = std::max<std::size_t>(output_.width(), 2) - 1;
  screen_->draw(livePage(record_, status_, columns), status_.stale_s.has_value());
}

void DisplayProgram::endInTime() { loop_.end(status_.recordCount > 0 ? 0 : 1); }

}  // namespace vorlent
