#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "bridge/PlaceCheck.h"
#include "bridge/Repeats.h"
#include "bridge/SimulatorLink.h"
#include "bridge/xPlaneDatagrams.h"
#include "platform/PolledSockets.h"

namespace vorlent {

/// X-Plane 11 and 12 by UDP: it is found by its beacon, asked for the position and for datarefs by
/// name, and told datarefs and commands.
class XPlaneLink : public SimulatorLink {
 public:
  /// Without an address the first X-Plane whose beacon is heard; with one, that machine, from the
  /// start at `port` and then where its beacon says.
  XPlaneLink(PolledSockets& sockets, const std::string& address, std::uint16_t port,
             const Mapping& mapping, Note note);
  /// X-Plane is told to send no more.
  ~XPlaneLink() override;
  XPlaneLink(const XPlaneLink&) = delete;
  XPlaneLink& operator=(const XPlaneLink&) = delete;

  void advance(double now_s) override;
  void write(const MappingRow& row, double value, double now_s) override;
  bool flows(double now_s) const override;
  const PropertyValues& values() const override { return values_; }
  unsigned long revision() const override { return revision_; }
  std::string aircraft() const override;

 private:
  struct Sent {
    double value = 0;
    Repeats repeats;
  };

  void listenForBeacons();
  void takeBeacon(const PolledDatagrams::Datagram& datagram, double now_s);
  void take(const PolledDatagrams::Datagram& datagram, double now_s);
  void takePosition(const AircraftPosition& position, double now_s);
  void takeReadings(const std::vector<Reading>& readings, double now_s);
  void subscribe(double now_s);
  void request(std::size_t index, int perSecond);
  void repeatWrites(double now_s);
  void tellUnanswered(double now_s);

  PolledSockets& sockets_;
  std::string wanted_;
  Note note_;
  PropertyValues values_;
  std::vector<std::size_t> asked_;  ///< the slots of what has a dataref of its own
  PlaceCheck place_;
  std::unique_ptr<PolledDatagrams> socket_;
  std::unique_ptr<PolledDatagrams> beacons_;
  std::optional<Endpoint> simulator_;
  std::map<std::string, Sent> sent_;
  std::size_t nextRequest_ = 0;
  double nextBatch_s_ = 0;
  double answersUntil_s_ = 0;  ///< until then one that was found is not left for another
  double position_s_ = 0;
  double readings_s_ = 0;
  double firstReading_s_ = 0;
  bool heardPosition_ = false;
  bool heardReadings_ = false;
  bool toldUnanswered_ = false;
  bool toldStranger_ = false;
  unsigned long revision_ = 0;
};

}  // namespace vorlent
