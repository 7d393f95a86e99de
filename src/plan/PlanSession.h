#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "display/DisplayClient.h"
#include "plan/FlightPlanner.h"
#include "plan/PlanShare.h"
#include "platform/EventLoop.h"
#include "platform/UdpSocket.h"

namespace vorlent {

/// Leads a server along a plan: puts down the files of a leg, has them executed by button 218, and
/// goes on when the server announces the end of a later leg in ACTIVE.
///
///   Sent --ACTIVE has the leg's waypoint--> Flown --ACTIVE has a later one--> Sent, of its leg
///   Sent --5 s without it--> Sent
///   Flown --ACTIVE is written anew with the leg's waypoint--> Sent
///
/// The server writes ACTIVE when it has read a plan, and again and again past a turn point until it
/// reads the next. So what is written anew after the answer means that the answer was lost. A
/// server that greets back a second time knows nothing of the plan any more: it gets the leg again.
class PlanSession {
 public:
  using Tell = std::function<void(const std::string&)>;
  /// What is done at the sight of a record, while a leg is flown.
  using Steer = std::function<std::vector<Command>(const Record&, std::size_t leg)>;

  /// Raises as DisplayClient.
  PlanSession(EventLoop& loop, Network& network, const DisplayClient::Settings& settings,
              PlannedFlight flight, PlanShare share, Tell tell);

  /// Who works the panel, from the moment on when the server has read the plan.
  void steerBy(Steer steer) { steer_ = std::move(steer); }
  /// Puts down the first leg's files and greets. Raises as PlanShare::write().
  void start();
  std::size_t leg() const { return leg_; }

 private:
  DisplayClient::Events events();
  void connected();
  void take(const Record& record);
  void look();
  void takeActive(const PlanShare::Active& active);
  void fly(std::size_t leg);
  void execute();
  std::uint32_t sinceSent_ms();
  std::optional<std::size_t> legTo(const std::string& waypoint) const;

  EventLoop& loop_;
  PlannedFlight flight_;
  PlanShare share_;
  Tell tell_;
  Steer steer_;
  std::size_t leg_ = 1;
  bool connected_ = false;
  bool answered_ = false;
  bool flown_ = false;  ///< the server has read the plan once
  std::uint32_t sentAt_ms_ = 0;
  std::optional<PlanShare::Active> active_;
  DisplayClient client_;
  std::unique_ptr<Timer> timer_;
};

}  // namespace vorlent
