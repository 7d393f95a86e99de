#include "bridge/XPlaneLink.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/RuntimeError.h"
#include "bridge/takeWaiting.h"

namespace vorlent {
namespace {

constexpr int PerSecond = 30;
/// X-Plane takes some 140 requests a frame; the rest of more is lost.
constexpr std::size_t RequestsInARow = 100;
constexpr double RequestPause_s = 0.1;
/// A simulator that was started again has forgotten what it was asked for.
constexpr double Renewal_s = 5;
constexpr double AnswerLimit_s = 12;
constexpr int IdentLength = 4;
constexpr const char* PositionPrefix = "RPOS/";

std::string identProperty(int letter) {
  return "sim/aircraft/view/acf_ICAO[" + std::to_string(letter) + "]";
}

std::vector<std::string> namesOf(const Mapping& mapping) {
  std::vector<std::string> names = propertiesOf(mapping.rows);
  for (int i = 0; i < IdentLength; ++i) names.push_back(identProperty(i));
  return names;
}

}  // namespace

XPlaneLink::XPlaneLink(PolledSockets& sockets, const std::string& address, std::uint16_t port,
                       const Mapping& mapping, Note note)
    : sockets_(sockets),
      wanted_(address),
      note_(std::move(note)),
      values_(namesOf(mapping)),
      socket_(sockets.datagrams("0.0.0.0", 0)) {
  for (std::size_t slot = 0; slot < values_.size(); ++slot)
    if (!values_.name(slot).starts_with(PositionPrefix)) asked_.push_back(slot);
  if (!wanted_.empty()) simulator_ = Endpoint{wanted_, port};
  listenForBeacons();
}

XPlaneLink::~XPlaneLink() {
  if (!simulator_) return;
  socket_->send(*simulator_, positionRequest(0));
  for (std::size_t index = 0; index < asked_.size(); ++index) request(index, 0);
}

void XPlaneLink::listenForBeacons() {
  try {
    beacons_ = sockets_.group(BeaconGroup, BeaconPort);
  } catch (const RuntimeError& error) {
    note_(error.description() + (wanted_.empty() ? "; say with --host where X-Plane is" : ""));
  }
}

void XPlaneLink::advance(double now_s) {
  takeWaiting(*socket_, [&](const auto& datagram) { take(datagram, now_s); });
  if (beacons_) takeWaiting(*beacons_, [&](const auto& datagram) { takeBeacon(datagram, now_s); });
  if (!simulator_) return;
  subscribe(now_s);
  repeatWrites(now_s);
  tellUnanswered(now_s);
}

/// One that flies is not left for another, and one that was just found has time to answer first,
/// however many others call.
void XPlaneLink::takeBeacon(const PolledDatagrams::Datagram& datagram, double now_s) {
  const auto beacon = beaconFrom(datagram.bytes);
  if (!beacon || flows(now_s) || now_s < answersUntil_s_) return;
  const Endpoint from{datagram.sender.address, beacon->port};
  if (!wanted_.empty() && from.address != wanted_) return;
  if (simulator_ && simulator_->address == from.address && simulator_->port == from.port) return;
  note_("X-Plane " + std::to_string(beacon->version / 10000) + " is at " + from.address + ":" +
        std::to_string(from.port));
  simulator_ = from;
  answersUntil_s_ = now_s + LongestSilence_s;
  nextRequest_ = 0;
  nextBatch_s_ = 0;
}

void XPlaneLink::take(const PolledDatagrams::Datagram& datagram, double now_s) {
  if (!simulator_ || datagram.sender.address != simulator_->address) {
    if (!std::exchange(toldStranger_, true))
      note_("datagrams of " + datagram.sender.address + " are passed over");
    return;
  }
  if (const auto position = positionFrom(datagram.bytes)) takePosition(*position, now_s);
  if (const auto readings = readingsFrom(datagram.bytes)) takeReadings(*readings, now_s);
}

void XPlaneLink::takePosition(const AircraftPosition& position, double now_s) {
  if (!place_.accepts({position.latitude_deg, position.longitude_deg, position.elevation_m}))
    return;
  const std::pair<const char*, double> told[] = {
      {"RPOS/latitude", position.latitude_deg}, {"RPOS/longitude", position.longitude_deg},
      {"RPOS/elevation", position.elevation_m}, {"RPOS/height", position.height_m},
      {"RPOS/pitch", position.pitch_deg},       {"RPOS/roll", position.roll_deg},
      {"RPOS/heading", position.heading_deg},
  };
  for (const auto& [name, value] : told)
    if (const std::size_t slot = values_.slotOf(name); slot != PropertyValues::None)
      values_.set(slot, value);
  heardPosition_ = true;
  position_s_ = now_s;
  ++revision_;
}

void XPlaneLink::takeReadings(const std::vector<Reading>& readings, double now_s) {
  if (!heardReadings_) firstReading_s_ = now_s;
  for (const Reading& reading : readings)
    if (reading.index >= 0 && static_cast<std::size_t>(reading.index) < asked_.size())
      values_.set(asked_[static_cast<std::size_t>(reading.index)], double{reading.value});
  heardReadings_ = true;
  readings_s_ = now_s;
  ++revision_;
}

void XPlaneLink::subscribe(double now_s) {
  if (now_s < nextBatch_s_) return;
  if (nextRequest_ == 0) socket_->send(*simulator_, positionRequest(PerSecond));
  const std::size_t end = std::min(nextRequest_ + RequestsInARow, asked_.size());
  for (; nextRequest_ < end; ++nextRequest_) request(nextRequest_, PerSecond);
  const bool all = nextRequest_ == asked_.size();
  nextBatch_s_ = now_s + (all ? Renewal_s : RequestPause_s);
  if (all) nextRequest_ = 0;
}

void XPlaneLink::request(std::size_t index, int perSecond) {
  socket_->send(*simulator_, readingRequest(perSecond, static_cast<std::int32_t>(index),
                                            values_.name(asked_[index])));
}

void XPlaneLink::write(const MappingRow& row, double value, double now_s) {
  if (!simulator_) return;
  const std::string& dataref = row.terms.front().property;
  if (row.route == Route::Command) {
    const double now = values_.named(dataref);
    if (std::isfinite(now) && std::fabs(now - value) > 0.5)
      socket_->send(*simulator_, commandRequest(row.command));
    return;
  }
  socket_->send(*simulator_, datarefWrite(dataref, static_cast<float>(value)));
  Sent& sent = sent_[dataref];
  sent.value = value;
  sent.repeats.begin(now_s);
}

void XPlaneLink::repeatWrites(double now_s) {
  for (auto& [dataref, sent] : sent_)
    if (sent.repeats.due(now_s))
      socket_->send(*simulator_, datarefWrite(dataref, static_cast<float>(sent.value)));
  std::erase_if(sent_, [](const auto& entry) { return entry.second.repeats.over(); });
}

bool XPlaneLink::flows(double now_s) const {
  return heardPosition_ && heardReadings_ && now_s - position_s_ < LongestSilence_s &&
         now_s - readings_s_ < LongestSilence_s;
}

std::string XPlaneLink::aircraft() const {
  std::string ident;
  for (int i = 0; i < IdentLength; ++i) {
    const double letter = values_.named(identProperty(i));
    if (std::isnan(letter)) return {};
    if (!(letter > ' ' && letter < 127)) break;
    ident += static_cast<char>(letter);
  }
  return ident;
}

void XPlaneLink::tellUnanswered(double now_s) {
  if (toldUnanswered_ || !heardReadings_ || now_s - firstReading_s_ < AnswerLimit_s) return;
  toldUnanswered_ = true;
  for (const std::size_t slot : asked_)
    if (!values_.knows(slot)) note_("X-Plane does not answer for " + values_.name(slot));
}

}  // namespace vorlent
