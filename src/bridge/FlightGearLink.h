#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "bridge/PlaceCheck.h"
#include "bridge/PropertyServer.h"
#include "bridge/Repeats.h"
#include "bridge/SimulatorLink.h"
#include "platform/PolledSockets.h"

namespace vorlent {

/// FlightGear: records of all values come in by UDP, trims and throttles go out by UDP, and the
/// rest to the property server.
class FlightGearLink : public SimulatorLink {
 public:
  /// Records come in at the first port, controls go to the second, the property server is the
  /// third.
  static constexpr std::uint16_t FirstPort = 5500;

  /// `address` is FlightGear's, dotted. Raises RuntimeError when the port for the records is taken.
  FlightGearLink(PolledSockets& sockets, const std::string& address, std::uint16_t firstPort,
                 const Mapping& mapping, Note note);

  void advance(double now_s) override;
  void write(const MappingRow& row, double value, double now_s) override;
  bool flows(double now_s) const override;
  const PropertyValues& values() const override { return values_; }
  unsigned long revision() const override { return revision_; }
  std::string aircraft() const override { return aircraft_; }

 private:
  struct Sent {
    double value = 0;
    double at_s = 0;
  };

  void take(const PolledDatagrams::Datagram& datagram, double now_s);
  bool isNext(double simulator_s);
  bool takePlace(const std::vector<double>& record);
  void sendStream(double now_s);
  double streamed(const std::string& property, double now_s) const;
  void askAircraft();
  void takeAnswer(const std::string& line);
  void tellOnce(bool& told, const std::string& text);

  Endpoint controls_;
  Note note_;
  std::vector<std::string> stream_;
  PropertyValues values_;
  PlaceCheck place_;
  std::unique_ptr<PolledDatagrams> socket_;
  PropertyServer server_;
  std::map<std::string, Sent> sent_;
  Repeats repeats_;
  std::string aircraft_;
  unsigned long revision_ = 0;
  unsigned long askedOf_ = 0;  ///< the connection on which the aircraft was asked for
  double heard_s_ = 0;
  double simulator_s_ = 0;
  bool heard_ = false;
  bool toldStranger_ = false;
  bool toldDamage_ = false;
};

}  // namespace vorlent
