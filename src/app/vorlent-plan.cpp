// The planner: makes a flight plan of a route file and leads a server along it.

#include <QCoreApplication>
#include <cmath>
#include <string>
#include <vector>

#include "app/EnoughDescriptors.h"
#include "base/RuntimeError.h"
#include "base/files.h"
#include "base/print.h"
#include "base/printable.h"
#include "commandline/CommandLineEnd.h"
#include "display/serverSettings.h"
#include "plan/Pilot.h"
#include "plan/PlanOptions.h"
#include "plan/PlanSession.h"
#include "plan/planTable.h"
#include "platform/ProgramFolder.h"
#include "platform/qt/HostAddresses.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtNetwork.h"
#include "platform/qt/Signals.h"

namespace {

using namespace vorlent;

/// A record a second is enough to see that the server lives.
constexpr int Interval_ms = 1000;

void complain(const std::string& text) { printError("vorlent-plan: " + printable(text) + "\n"); }

/// Of the flight, from one record to the pilot's next.
constexpr double Look_s = 0.1;

int interval_ms(const PlanOptions& options) {
  return options.pilot ? static_cast<int>(std::lround(1000 * Look_s / options.flightSeconds))
                       : Interval_ms;
}

void say(const std::string& notice) { print(printable(notice) + "\n"); }

Pilot::Landing landing(const PlanOptions& options) {
  return {options.localizer_MHz, options.task.runway ? options.task.runway->course_deg : 0};
}

int lead(int argc, char** argv, const PlanOptions& options, const PlannedFlight& flight) {
  expectDescriptors("vorlent-plan");
  QCoreApplication application(argc, argv);
  QtEventLoop loop;
  QtNetwork network;
  const std::string database = readFile(joinedPath(programFolder(), "Templates/temp.mdb"));
  PlanSession session(
      loop, network,
      serverSettings({options.host, options.port, interval_ms(options), options.name},
                     hostAddresses(options.host), network),
      flight, {options.share, database}, say);
  Pilot pilot(flight, landing(options), Look_s, say);
  if (options.pilot)
    session.steerBy([&](const Record& record, std::size_t leg) {
      std::vector<Command> commands = pilot.look(record, leg);
      if (pilot.arrived()) loop.end(0);
      return commands;
    });
  const Signals termination([&loop](int) { loop.end(0); });
  session.start();
  return loop.exec();
}

int run(int argc, char** argv, const PlanOptions& options) {
  const PlannedFlight flight = planFlight(loadRoute(options.route), options.task);
  for (const std::string& notice : flight.notices) complain(notice);
  if (!options.print) return lead(argc, argv, options, flight);
  print(planTable(flight));
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv, readPlanOptions(argumentsOf(argc, argv)));
  } catch (const CommandLineEnd& end) {
    return tell(end);
  } catch (const RuntimeError& error) {
    complain(error.description());
    return 1;
  }
}
