#include "replay/Tape.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/RuntimeError.h"
#include "recording/portTexts.h"
#include "recording/sqlite/RecordingReader.h"

namespace vorlent {
namespace {

using recorded::Call;

/// Around them stands what happened while the server waited, or they are given to it.
constexpr std::array BoundaryCalls{Call::Pump, Call::MessageBox, Call::ShowForm, Call::ZipDone,
                                   Call::DocumentDone};

bool isBoundary(const recorded::Event& event) {
  if (const auto* answered = std::get_if<recorded::Answered>(&event.what))
    return std::find(BoundaryCalls.begin(), BoundaryCalls.end(), answered->call) !=
           BoundaryCalls.end();
  return std::holds_alternative<recorded::TimerTicked>(event.what) ||
         std::holds_alternative<recorded::DatagramCame>(event.what) ||
         std::holds_alternative<recorded::DatagramContinued>(event.what) ||
         std::holds_alternative<recorded::HandMoved>(event.what) ||
         std::holds_alternative<recorded::Dropped>(event.what) ||
         std::holds_alternative<recorded::Ended>(event.what);
}

}  // namespace

Tape::Tape(RecordingReader& reader) : reader_(reader) { readStretch(); }

bool Tape::isAt(Call wait, std::int64_t number) const {
  if (!boundary_) return false;
  const auto* answered = std::get_if<recorded::Answered>(&boundary_->what);
  return answered && answered->call == wait && answered->number == number;
}

bool Tape::isCut() const {
  return !boundary_ || std::holds_alternative<recorded::Dropped>(boundary_->what);
}

void Tape::advance() {
  if (boundary_) time_us_ = boundary_->time_us;
  readStretch();
}

void Tape::readStretch() {
  answers_.clear();
  exchanges_.clear();
  boundary_.reset();
  while (auto event = reader_.next()) {
    if (isBoundary(*event)) {
      boundary_ = std::move(event);
      return;
    }
    keep(std::move(*event));
  }
}

/// What is there for who looks is passed over: the server does it by itself again.
void Tape::keep(recorded::Event event) {
  if (auto* answered = std::get_if<recorded::Answered>(&event.what))
    answers_[answered->call].emplace_back(std::move(*answered));
  else if (auto* raised = std::get_if<recorded::Raised>(&event.what))
    answers_[raised->call].emplace_back(std::move(*raised));
  else if (auto* exchanged = std::get_if<recorded::Exchanged>(&event.what))
    exchanges_.push_back({event.time_us, std::move(*exchanged)});
  else if (auto* file = std::get_if<recorded::FileKept>(&event.what))
    files_.push_back(std::move(*file));
}

std::optional<recorded::Answered> Tape::answer(Call call) {
  auto& queue = answers_[call];
  if (queue.empty()) return std::nullopt;
  const auto next = std::move(queue.front());
  queue.pop_front();
  if (const auto* raised = std::get_if<recorded::Raised>(&next))
    throw RuntimeError(raised->number, raised->description);
  return std::get<recorded::Answered>(next);
}

std::int64_t Tape::numberOf(Call call, std::int64_t otherwise) {
  const auto given = answer(call);
  return given ? given->number : otherwise;
}

std::string Tape::textOf(Call call) {
  const auto given = answer(call);
  return given ? given->text : "";
}

std::vector<std::string> Tape::linesOf(Call call) { return recorded::linesOf(textOf(call)); }

}  // namespace vorlent
