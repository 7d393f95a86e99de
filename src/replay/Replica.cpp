#include "replay/Replica.h"

#include <utility>

#include "base/files.h"
#include "core/modMain.h"
#include "platform/PlatformSettings.h"

namespace vorlent {
namespace {

using recorded::Call;

template <class... Takes>
struct Overloaded : Takes... {
  using Takes::operator()...;
};
template <class... Takes>
Overloaded(Takes...) -> Overloaded<Takes...>;

}  // namespace

Replica::Replica(RecordingReader& reader)
    : tape_(reader),
      folder_(tape_.files()),
      loop_(tape_, [this](Call call) { wait(call); }),
      operator_([this](Call call) { wait(call); }),
      network_(tape_),
      bus_(tape_, writes_),
      networkFiles_(tape_),
      performanceDb_(tape_),
      controllers_(tape_),
      sounds_(tape_),
      machine_(tape_),
      server_(
          {loop_, operator_, network_, bus_, networkFiles_, performanceDb_, machine_, machine_,
           machine_, controllers_, machine_, sounds_, documents_, machine_, zipFiles_},
          {folder_.path(), {}, readPlatformSettings(joinedPath(folder_.path(), "Vorlent.ini"))}),
      hand_(server_) {}

void Replica::run(const Polled& polled) {
  server_.failureDomain.run([this] { server_.main->Main(); });
  note(polled);
  while (tape_.boundary() && !gap_us_) {
    deliverNext();
    note(polled);
  }
  countMissing();
}

void Replica::note(const Polled& polled) {
  if (bus_.takePolled() && polled) polled(tape_.time_us(), server_.store);
}

/// Where the server waits now and did not then, nothing happens meanwhile.
void Replica::wait(Call call) {
  constexpr int Begins = 1;
  constexpr int Ends = 0;
  if (!tape_.isAt(call, Begins)) return;
  advance();
  while (tape_.boundary() && !gap_us_ && !tape_.isAt(call, Ends)) deliverNext();
  if (tape_.isAt(call, Ends)) advance();
}

/// Into the stretch that the boundary begins, and what began it to the server.
void Replica::deliverNext() {
  const recorded::Event event = *tape_.boundary();
  if (std::holds_alternative<recorded::Dropped>(event.what)) {
    gap_us_ = event.time_us;
    return;
  }
  advance();
  deliver(event.what);
}

void Replica::deliver(const recorded::What& what) {
  FailureDomain& domain = server_.failureDomain;
  std::visit(Overloaded{
                 [this](const recorded::TimerTicked& ticked) { loop_.tick(ticked.timer); },
                 [this](const recorded::DatagramCame& came) {
                   network_.deliver(came.socket, {came.address, came.port}, came.text);
                 },
                 [this](const recorded::DatagramContinued& on) { network_.continueOn(on.socket); },
                 [&](const recorded::HandMoved& hand) { domain.run([&] { hand_.move(hand); }); },
                 [this](const recorded::Answered& given) { deliver(given); },
                 [this](const recorded::Ended& ended) { endedThen_ = ended.exitStatus; },
                 [](const auto&) {},
             },
             what);
}

/// The ends of what went on beside the server. A wait that the server does not make now is none.
void Replica::deliver(const recorded::Answered& given) {
  if (given.call == Call::DocumentDone) documents_.finish(static_cast<int>(given.number));
  if (given.call == Call::ZipDone) zipFiles_.finish(given.text);
}

void Replica::advance() {
  countMissing();
  tape_.advance();
}

/// What was sent to the simulator in this stretch, and not again.
void Replica::countMissing() {
  for (const Tape::Exchange& then : tape_.exchanges())
    writes_.onlyThen(then.time_us, *then.what.request, then.what.written);
  tape_.exchanges().clear();
}

std::string Replica::differenceOfEnd() const {
  const auto now = loop_.exitStatus();
  if (!endedThen_ || now == endedThen_) return "";
  return "the server ended with status " + std::to_string(*endedThen_) + " then, and " +
         (now ? "with " + std::to_string(*now) : "does not") + " now";
}

}  // namespace vorlent
