#include "display/DisplayProgram.h"

#include <utility>

#include "base/RuntimeError.h"
#include "display/format.h"
#include "display/recordText.h"

namespace vorlent {
namespace {

constexpr int PageInterval_ms = 100;
constexpr int LineInterval_ms = 1000;

DisplayClient::Settings settingsOf(const DisplayOptions& options, Network& network) {
  return {{options.host.empty() ? network.localIp() : options.host, options.port},
          options.interval_ms,
          options.name.empty() ? network.localHostName() : options.name};
}

}  // namespace

DisplayProgram::DisplayProgram(EventLoop& loop, Network& network, const DisplayOptions& options,
                               Output output)
    : loop_(loop),
      output_(std::move(output)),
      print_(options.print),
      run_s_(options.seconds.value_or(0)),
      client_(loop, network, settingsOf(options, network), events()),
      showTimer_(loop.createTimer([this] { show(); })),
      endTimer_(loop.createTimer([this] { endInTime(); })) {
  status_.server = endpointText(settingsOf(options, network).server);
}

DisplayClient::Events DisplayProgram::events() {
  return {[this](const Record& record) { takeRecord(record); },
          [this](const GreetingReply& reply) { takeReply(reply); },
          [this](const std::string& notice) { tell(notice); }};
}

void DisplayProgram::start() {
  if (output_.terminal && !print_) {
    screen_.emplace(output_.write);
    screen_->prompt(PageHeight + 1);
  }
  if (!print_) showTimer_->start(screen_ ? PageInterval_ms : LineInterval_ms);
  if (run_s_ > 0) endTimer_->start(run_s_ * 1000);
  client_.start();
}

void DisplayProgram::typed(const std::string& line) {
  if (screen_) screen_->prompt(PageHeight + 1);
  if (line.find_first_not_of(" \t\r") == std::string::npos) return;
  try {
    client_.send(readCommands(line));
    tell("sent: " + line);
  } catch (const RuntimeError& error) {
    tell("not sent: " + error.description());
  }
}

void DisplayProgram::takeRecord(const Record& record) {
  ++status_.recordCount;
  changed_ = true;
  record_ = record;
  if (!print_ || status_.recordCount > 1) return;
  output_.write(fieldList(record));
  loop_.end(0);
}

void DisplayProgram::takeReply(const GreetingReply& reply) {
  status_.folder = reply.folder;
  tell("aircraft folder \"" + reply.folder + "\", " + std::to_string(reply.engineCount) +
       " engines");
}

void DisplayProgram::tell(const std::string& notice) {
  status_.message = notice;
  if (screen_)
    changed_ = true;
  else
    (print_ ? output_.writeAside : output_.write)(printable(notice) + "\n");
}

void DisplayProgram::show() {
  if (!std::exchange(changed_, false)) return;
  if (screen_)
    screen_->draw(livePage(record_, status_));
  else if (record_)
    output_.write(reportLine(*record_) + "\n");
}

void DisplayProgram::endInTime() { loop_.end(status_.recordCount > 0 ? 0 : 1); }

}  // namespace vorlent
