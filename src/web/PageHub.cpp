#include "web/PageHub.h"

#include <utility>

#include "base/RuntimeError.h"
#include "web/json.h"
#include "web/pageCommands.h"

namespace vorlent {

PageHub::PageHub(EventLoop& loop, SendCommands sendCommands)
    : loop_(loop), sendCommands_(std::move(sendCommands)) {}

bool PageHub::join(Page& page) {
  if (pages_.size() >= MostPages) return false;
  pages_.emplace(&page, Member{{CommandsAtOnce, CommandsPerSecond, loop_.tickCount_ms()}});
  for (const std::string& message : {aircraft_, notice_, plan_})
    if (!message.empty()) page.send(message);
  return true;
}

void PageHub::leave(Page& page) { pages_.erase(&page); }

void PageHub::take(Page& page, std::string_view message) {
  const auto member = pages_.find(&page);
  if (member == pages_.end()) return;
  try {
    const auto commands = readPageCommands(message);
    if (!member->second.limit.take(static_cast<double>(commands.size()), loop_.tickCount_ms()))
      page.send(refusalMessage("too many commands at once"));
    else if (!sendCommands_(commands))
      page.send(refusalMessage("the command could not be sent to the server"));
  } catch (const RuntimeError& error) {
    page.send(refusalMessage(error.description()));
  }
}

void PageHub::show(const Record& record) {
  const bool sameShape = record_ && record_->layout().blocks() == record.layout().blocks();
  const std::string changes = sameShape ? changesMessage(*record_, record) : "";
  record_ = record;
  for (auto& [page, member] : pages_) {
    member.needsWhole = member.needsWhole || !sameShape;
    give(*page, member, changes, record);
  }
}

void PageHub::give(Page& page, Member& member, const std::string& changes, const Record& record) {
  if (page.isBehind()) {
    member.needsWhole = true;
    if (++member.behind == MostRecordsBehind) page.end();
    return;
  }
  page.send(member.needsWhole ? recordMessage(record) : changes);
  member.needsWhole = false;
  member.behind = 0;
}

void PageHub::show(const GreetingReply& reply) { tellAll(aircraft_ = aircraftMessage(reply)); }

void PageHub::showNotice(const std::string& notice) { tellAll(notice_ = noticeMessage(notice)); }

void PageHub::showPlan(const std::string& message) { tellAll(plan_ = message); }

void PageHub::tellAll(const std::string& message) {
  for (auto& [page, member] : pages_)
    if (!page->isBehind()) page->send(message);
}

}  // namespace vorlent
