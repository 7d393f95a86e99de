#include "bridge/FlightGearLink.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/units.h"
#include "bridge/flightGearProtocol.h"
#include "bridge/takeWaiting.h"

namespace vorlent {
namespace {

/// A record that is older by less was overtaken on its way; one that is older by more begins anew.
constexpr double LongestDetour_s = 3;
/// What was sent so lately is newer than what a record says.
constexpr double SentCounts_s = 0.5;
constexpr std::size_t LongestName = 64;

bool isLocal(const std::string& address) { return address.starts_with("127."); }

bool isName(const std::string& text) {
  return !text.empty() && text.size() <= LongestName &&
         std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c < 127; });
}

}  // namespace

FlightGearLink::FlightGearLink(PolledSockets& sockets, const std::string& address,
                               std::uint16_t firstPort, const Mapping& mapping, Note note)
    : controls_{address, static_cast<std::uint16_t>(firstPort + 1)},
      note_(std::move(note)),
      stream_(streamProperties(mapping)),
      values_(recordProperties(mapping)),
      socket_(sockets.datagrams(isLocal(address) ? "127.0.0.1" : "0.0.0.0", firstPort)),
      server_(sockets, {address, static_cast<std::uint16_t>(firstPort + 2)},
              [this](const std::string& line) { takeAnswer(line); }) {}

void FlightGearLink::advance(double now_s) {
  takeWaiting(*socket_, [&](const auto& datagram) { take(datagram, now_s); });
  server_.advance(now_s);
  if (server_.open() && askedOf_ != server_.connections()) askAircraft();
  if (repeats_.due(now_s)) sendStream(now_s);
}

void FlightGearLink::take(const PolledDatagrams::Datagram& datagram, double now_s) {
  if (datagram.sender.address != controls_.address)
    return tellOnce(toldStranger_, "datagrams of " + datagram.sender.address + " are passed over");
  const auto record = valuesFrom(datagram.bytes, values_.size());
  if (!record)
    return tellOnce(toldDamage_,
                    "a record of " + std::to_string(datagram.bytes.size()) +
                        " bytes is none of ours: are the protocol files of this version?");
  if (!std::isfinite(record->front()) || !takePlace(*record) || !isNext(record->front())) return;
  for (std::size_t i = 0; i < values_.size(); ++i) values_.set(i, (*record)[i]);
  heard_ = true;
  heard_s_ = now_s;
  ++revision_;
}

bool FlightGearLink::takePlace(const std::vector<double>& record) {
  const auto number = [&](const char* name) { return record[values_.slotOf(name)]; };
  return place_.accepts({number("/position/latitude-deg"), number("/position/longitude-deg"),
                         number("/position/altitude-ft") * MetresPerFoot});
}

/// A simulator that began anew may fly another aircraft.
bool FlightGearLink::isNext(double simulator_s) {
  const bool overtaken = simulator_s < simulator_s_ && simulator_s > simulator_s_ - LongestDetour_s;
  if (heard_ && overtaken) return false;
  if (heard_ && simulator_s < simulator_s_) {
    values_.forget();
    askAircraft();
  }
  simulator_s_ = simulator_s;
  return true;
}

void FlightGearLink::write(const MappingRow& row, double value, double now_s) {
  const std::string& property = row.terms.front().property;
  if (row.route != Route::Stream) return server_.set(property, value);
  sent_[property] = {value, now_s};
  sendStream(now_s);
  repeats_.begin(now_s);
}

/// FlightGear takes over every value of the datagram, so those that nobody wrote are what it has.
void FlightGearLink::sendStream(double now_s) {
  std::vector<double> values;
  for (const std::string& property : stream_) values.push_back(streamed(property, now_s));
  if (std::all_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); }))
    socket_->send(controls_, controlLine(values));
}

double FlightGearLink::streamed(const std::string& property, double now_s) const {
  const auto sent = sent_.find(property);
  if (sent != sent_.end() && now_s - sent->second.at_s < SentCounts_s) return sent->second.value;
  return values_.named(property);
}

bool FlightGearLink::flows(double now_s) const {
  return heard_ && now_s - heard_s_ < LongestSilence_s;
}

void FlightGearLink::askAircraft() {
  askedOf_ = server_.connections();
  server_.ask("/sim/aircraft");
}

void FlightGearLink::takeAnswer(const std::string& line) {
  if (isName(line)) aircraft_ = line;
}

void FlightGearLink::tellOnce(bool& told, const std::string& text) {
  if (!told) note_(text);
  told = true;
}

}  // namespace vorlent
