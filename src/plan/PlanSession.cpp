#include "plan/PlanSession.h"

#include <array>
#include <utility>

#include "base/RuntimeError.h"
#include "base/text.h"
#include "plan/planRows.h"

namespace vorlent {
namespace {

constexpr int LookInterval_ms = 250;
/// Longer than a cycle of the autoflight and the reading of a plan over a network.
constexpr std::uint32_t AnswerTime_ms = 2000;
constexpr std::uint32_t RepeatTime_ms = 5000;
const Command ExecuteFlightPlan = {"P", 218, 1};

}  // namespace

PlanSession::PlanSession(EventLoop& loop, Network& network, const DisplayClient::Settings& settings,
                         PlannedFlight flight, PlanShare share, Tell tell)
    : loop_(loop),
      flight_(std::move(flight)),
      share_(std::move(share)),
      tell_(std::move(tell)),
      client_(loop, network, settings, events()),
      timer_(loop.createTimer([this] { look(); })) {}

DisplayClient::Events PlanSession::events() {
  return {[this](const Record& record) { take(record); },
          [this](const GreetingReply&) { connected(); },
          [this](const std::string& notice) { tell_(notice); }};
}

void PlanSession::start() {
  share_.write(flight_, leg_);
  share_.forgetActive();
  client_.start();
  timer_->start(LookInterval_ms);
}

void PlanSession::connected() {
  connected_ = true;
  fly(leg_);
}

void PlanSession::take(const Record& record) {
  if (!connected_) return connected();
  if (!flown_ || !steer_) return;
  const std::vector<Command> commands = steer_(record, leg_);
  if (!commands.empty()) client_.send(commands);
}

void PlanSession::look() {
  if (!connected_) return;
  const auto active = share_.active();
  if (active && active != active_) takeActive(*active);
  active_ = active;
  if (!answered_ && sinceSent_ms() >= RepeatTime_ms) execute();
}

void PlanSession::takeActive(const PlanShare::Active& active) {
  const auto announced = legTo(active.waypoint);
  if (!announced || *announced < leg_) return;
  if (*announced > leg_)
    fly(*announced);
  else if (answered_ && sinceSent_ms() > AnswerTime_ms)
    execute();
  else
    answered_ = flown_ = true;
}

void PlanSession::fly(std::size_t leg) {
  try {
    share_.write(flight_, leg);
  } catch (const RuntimeError& error) {
    tell_("the plan was not written: " + error.description());
    return;
  }
  leg_ = leg;
  tell_("leg " + std::to_string(leg) + " of " + std::to_string(legCount(flight_)) + ", from " +
        legEnd(flight_, leg - 1).name + " to " + legEnd(flight_, leg).name);
  execute();
}

void PlanSession::execute() {
  answered_ = false;
  sentAt_ms_ = loop_.tickCount_ms();
  client_.send(std::array{ExecuteFlightPlan});
}

std::uint32_t PlanSession::sinceSent_ms() { return loop_.tickCount_ms() - sentAt_ms_; }

std::optional<std::size_t> PlanSession::legTo(const std::string& waypoint) const {
  for (std::size_t leg = legCount(flight_); leg >= 1; --leg)
    if (legEnd(flight_, leg).name == waypoint) return leg;
  return std::nullopt;
}

}  // namespace vorlent
