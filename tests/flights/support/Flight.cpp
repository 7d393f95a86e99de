#include "Flight.h"
#include "base/units.h"

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "autoflight/clsAfds.h"
#include "base/files.h"
#include "base/text.h"
#include "core/singletons.h"
#include "simulator/SimulatorHost.h"
#include "simulator/StandardAtmosphere.h"
#include "simulator/StationTable.h"
#include "simulator/angles.h"
#include "simulator/dynamics/Loading.h"
#include "support/places.h"

namespace vorlent {
namespace {

constexpr int step_ms = 20;
constexpr std::size_t blockSize = 0x8000;
const std::string Plan = "\\\\display\\Tarnwick\\FMS\\";

std::string shippedFile(const std::string& name) {
  return readFile(joinedPath(dataFolder(), "Network/display/Tarnwick/FMS/" + name));
}

double fuelAboard_lb() {
  OffsetMemory memory;
  return FuelTanks(memory).total_lb();
}

TwinJet::Settings settingsFor(const Condition& condition) {
  TwinJet::Settings settings;
  settings.plant = condition.plant;
  settings.wind = condition.wind;
  if (condition.asXPlane) settings.scales = XpuipcScales;
  settings.addedMass_kg = addedMassFor_kg(*condition.plant, condition.weight_lb, fuelAboard_lb());
  settings.stations = stationsFrom(readFile(joinedPath(dataFolder(), "Stations.txt")));
  settings.start = StartingState::Runway;
  if (condition.onRunway) return settings;
  settings.level = condition.at;
  const double altitude_m = condition.altitude_ft * MetresPerFoot;
  const Air air = standardAir(altitude_m);
  const double mach =
      machOfCalibrated(condition.speed_kt * MetresPerSecondPerKnot, air.pressure_Pa);
  settings.level->point = {altitude_m, mach * air.soundSpeed_m_s, condition.flapDetent,
                           condition.gearDown};
  return settings;
}

}  // namespace

std::string shippedTuning() { return shippedFile("Acft/737-700/737-700.acf"); }

Flight::Flight(const Condition& condition, const std::string& tuning,
               const PerfDataRow& performance)
    : requests_(memory_, [](const std::string&) {}), aircraft_(memory_, settingsFor(condition)) {
  // It writes into the memory who the simulator is; time goes on by step().
  SimulatorHost(memory_, aircraft_, {.asXPlane = condition.asXPlane}, [](const std::string&) {});
  memory_.write<std::uint16_t>(0x3BFA, 2047);
  server_.bus.onRequest = [this](SendResult, std::byte* block) {
    server_.bus.writes.clear();
    return SendResult{true, requests_.serve({block, blockSize}), 0};
  };
  server_.networkFiles.files[Plan + "plan.cfg"] = shippedFile("plan.cfg");
  server_.networkFiles.files[Plan + "Acft\\737-700\\737-700.acf"] = tuning;
  configure(condition.at.place.latitude_deg < 0);
  server_.performanceDb.present = !performance.empty();
  setPerformance(performance);
  // A client's socket takes what comes to any address.
  server_.network.otherAddresses.push_back("0.0.0.0");
  server_.start();
  server_.greet(0, "100", "display");
  samples_.push_back(sample());
  // Until the cycle runs and its averages have settled.
  constexpr double initialised_s = 12;
  fly(initialised_s);
}

/// As the shipped settings have it; VORLENT_CYCLE_TIME flies with another cycle, in milliseconds.
void Flight::configure(bool south) {
  Server& server = server_.server;
  server.autoflight.Glideslope = true;
  server.store.SouthernLatitudes = south;
  if (const char* cycle_ms = std::getenv("VORLENT_CYCLE_TIME"))
    server.installation.platform.CycleTime = std::stoi(cycle_ms);
}

void Flight::step() {
  aircraft_.step(step_ms / 1000.0);
  server_.loop.advance(step_ms);
  for (const FakeNetwork::Sent& sent : server_.network.takeSent())
    if (onSent_) onSent_(sent);
  samples_.push_back(sample());
}

void Flight::fly(double duration_s) {
  for (long n = std::lround(duration_s * 1000 / step_ms); n > 0; --n) step();
}

bool Flight::flyUntil(const std::function<bool()>& condition, double limit_s) {
  for (long n = std::lround(limit_s * 1000 / step_ms); n > 0; --n) {
    if (condition()) return true;
    step();
  }
  return condition();
}

Sample Flight::sample() {
  const AircraftState s = aircraft_.state();
  const clsXAutoP* ap = server_.server.autoflight.xAutoP.get();
  return {s.elapsed_s,
          s.altitude_m / MetresPerFoot,
          s.calibratedAirspeed_m_s / MetresPerSecondPerKnot,
          s.mach,
          s.verticalSpeed_m_s / MetresPerSecondPerFpm,
          s.pitch_deg,
          s.bank_deg,
          compass(s.heading_deg - s.magneticVariation_deg),
          s.loadFactor,
          s.engines[0].n1_pct,
          memory_.read<std::int16_t>(0x088C) / 163.84,
          static_cast<double>(memory_.read<std::int16_t>(0x0BC0)),
          static_cast<double>(memory_.read<std::int8_t>(0x0C48)),
          ap->apAltitude(),
          ap->apAirSpeed(),
          ap->apHeading(),
          ap->apPitch(),
          ap->apBank(),
          s.place.latitude_deg,
          s.place.longitude_deg,
          static_cast<double>(memory_.read<std::int8_t>(0x0C49))};
}

std::span<const Sample> Flight::last(double seconds) const {
  const auto count = static_cast<std::size_t>(std::lround(seconds * 1000 / step_ms));
  return std::span(samples_).last(std::min(count, samples_.size()));
}

void Flight::press(Press button) {
  server_.deliver(0, "p P " + std::to_string(static_cast<int>(button)) + " 1 ");
}

void Flight::dial(Dial dial, double value) {
  server_.deliver(0, "p A " + std::to_string(static_cast<int>(dial)) + " " +
                         singleText(static_cast<float>(value), ".") + " ");
}

void Flight::setPerformance(const PerfDataRow& row) { server_.performanceDb.reading.row = row; }

void Flight::share(const std::string& name, const std::string& content) {
  server_.networkFiles.files[Plan + name] = content;
}

std::string Flight::takeActive() {
  const std::string writing = "write " + Plan + "ACTIVE: ";
  std::string active;
  for (const std::string& change : server_.networkFiles.changes)
    if (change.starts_with(writing)) active = change.substr(writing.size());
  server_.networkFiles.changes.clear();
  return std::string(trimmed(active.substr(0, active.find('\r'))));
}

void Flight::engageLevel() {
  dial(Dial::Altitude, std::round(now().altitude_ft));
  dial(Dial::Speed, std::round(now().speed_kt));
  dial(Dial::Heading, std::round(now().heading_deg));
  for (const Press button : {Press::Autothrottle, Press::Speed, Press::CommandA,
                             Press::HeadingSelect, Press::AltitudeHold})
    press(button);
}

void Flight::writeTrace(const std::string& name) const {
  const char* folder = std::getenv("VORLENT_FLIGHT_DATA");
  if (folder == nullptr) return;
  std::ofstream file(std::string(folder) + "/" + name + ".csv");
  file << "time_s,altitude_ft,speed_kt,mach,climb_fpm,pitch_deg,bank_deg,heading_deg,load,n1_pct,"
          "lever_pct,trim,needle,targetAltitude_ft,targetSpeed_kt,targetHeading_deg,"
          "targetPitch_deg,bankLimit_deg,latitude_deg,longitude_deg,glideNeedle\n";
  constexpr std::size_t every = 100 / step_ms;
  for (std::size_t i = 0; i < samples_.size(); i += every) {
    const Sample& s = samples_[i];
    const char* separator = "";
    for (const double value : {s.time_s,
                               s.altitude_ft,
                               s.speed_kt,
                               s.mach,
                               s.climb_fpm,
                               s.pitch_deg,
                               s.bank_deg,
                               s.heading_deg,
                               s.load,
                               s.n1_pct,
                               s.lever_pct,
                               s.trim,
                               s.needle,
                               s.targetAltitude_ft,
                               s.targetSpeed_kt,
                               s.targetHeading_deg,
                               s.targetPitch_deg,
                               s.bankLimit_deg,
                               s.latitude_deg,
                               s.longitude_deg,
                               s.glideNeedle}) {
      file << separator << value;
      separator = ",";
    }
    file << '\n';
  }
}

}  // namespace vorlent
