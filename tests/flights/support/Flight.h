#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/PerformanceDb.h"
#include "simulator/OffsetMemory.h"
#include "simulator/RequestServer.h"
#include "simulator/dynamics/TwinJet.h"
#include "support/TestServer.h"

namespace vorlent {

/// How a flight begins: on the runway, or in steady level flight, nobody at the controls.
struct Condition {
  bool onRunway = false;  ///< of the state below only plant, weight and wind count then
  const PlantData* plant = &plant737();
  double altitude_ft = 5000;
  double speed_kt = 250;  ///< calibrated
  double weight_lb = 131411;
  double flapDetent = 0;
  bool gearDown = false;
  WindSettings wind{};
  bool asXPlane = false;  ///< the interface is XPUIPC
  LevelStart at{};        ///< place and heading; the point is worked out of the above
};

/// The aircraft as it is, not as the server sees it, and what the panel asks for.
struct Sample {
  double time_s;
  double altitude_ft;
  double speed_kt;  ///< calibrated
  double mach;
  double climb_fpm;
  double pitch_deg;
  double bank_deg;     ///< right positive
  double heading_deg;  ///< magnetic
  double load;
  double n1_pct;
  double lever_pct;
  double trim;  ///< -16383 to 16383
  double needle;
  double targetAltitude_ft;
  double targetSpeed_kt;
  double targetHeading_deg;
  double targetPitch_deg;
  double bankLimit_deg;
  double latitude_deg;
  double longitude_deg;
  double glideNeedle;  ///< -127 to 127
};

/// Push buttons of a mode control panel and levers of a cockpit, by their command codes.
enum class Press : std::int16_t {
  FlapsUp = 52,    ///< one detent
  FlapsDown = 54,  ///< likewise
  GearDown = 63,
  GearUp = 65,
  ParkingBrake = 105,
  Autothrottle = 163,
  N1 = 164,
  Speed = 165,
  LevelChange = 167,
  Vnav = 168,
  Lnav = 169,
  VorLoc = 170,
  Approach = 171,
  HeadingSelect = 172,
  AltitudeHold = 174,
  VerticalSpeed = 175,
  N1SelectorUp = 181,
  CommandA = 183,
  CwsA = 186,
  FlightDirector = 188,
  ToGa = 214,
  ExecutePlan = 218,
};

/// What is dialled, by its command code: feet, degrees magnetic, knots, feet a minute, percent.
enum class Dial : std::int16_t {
  Course = 80,
  Altitude = 81,
  Heading = 82,
  Speed = 84,
  VerticalSpeed = 85,
  N1 = 96,
};

/// The text of a tuning file as the shipped one, and the aircraft's name.
std::string shippedTuning();

/// A whole server in virtual time with the built-in aircraft at its offsets. The server is started
/// as the program does it, a display has greeted, poll and cycle run.
class Flight {
 public:
  /// The planning display's database is missing without a row.
  explicit Flight(const Condition& condition, const std::string& tuning = shippedTuning(),
                  const PerfDataRow& performance = {});

  void fly(double duration_s);
  /// False when the condition did not hold within the time.
  bool flyUntil(const std::function<bool()>& condition, double limit_s);

  // What a pilot does; it goes the way of a panel on the network.
  void press(Press button);
  void dial(Dial dial, double value);
  /// The first row of the display's database from now on.
  void setPerformance(const PerfDataRow& row);
  /// The files of the display's share: content by their names in the folder of plans.
  void share(const std::string& name, const std::string& content);
  /// What the server wrote last into the file ACTIVE, without its line end; empty when nothing is
  /// new since the last call.
  std::string takeActive();

  /// Armed autothrottle that holds the present speed, command A with the present heading selected
  /// and the present altitude held.
  void engageLevel();

  /// Datagrams of every socket in the network; without it nobody takes them.
  void onSent(std::function<void(const FakeNetwork::Sent&)> take) { onSent_ = std::move(take); }
  FakeNetwork& network() { return server_.network; }
  EventLoop& loop() { return server_.loop; }
  Server& server() { return server_.server; }
  clsXAutoP& autopilot() { return *server_.server.autoflight.xAutoP; }
  clsXAutoT& autothrottle() { return *server_.server.autoflight.xAutoT; }
  clsAfds& afds() { return *server_.server.autoflight.afds; }
  Annunciators& shown() { return server_.server.autoflight.annunciators; }
  OffsetMemory& memory() { return memory_; }
  AircraftState state() const { return aircraft_.state(); }

  const std::vector<Sample>& samples() const { return samples_; }
  const Sample& now() const { return samples_.back(); }
  /// From `seconds` before now on.
  std::span<const Sample> last(double seconds) const;
  /// A mark for since().
  std::size_t mark() const { return samples_.size(); }
  std::span<const Sample> since(std::size_t mark) const {
    return std::span(samples_).subspan(mark);
  }
  /// NAME.csv in the folder that VORLENT_FLIGHT_DATA names, a row every tenth of a second; nothing
  /// without the variable.
  void writeTrace(const std::string& name) const;

 private:
  void configure(bool south);
  void step();
  Sample sample();

  TestServer server_;
  OffsetMemory memory_;
  RequestServer requests_;
  TwinJet aircraft_;
  std::vector<Sample> samples_;
  std::function<void(const FakeNetwork::Sent&)> onSent_;
};

}  // namespace vorlent
