#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace vorlent {

/// An X-Plane of ours, by "Exchanging Data with X-Plane": it tells of itself, takes requests for
/// values and sends them, takes values and commands. Written apart from the bridge.
class FakeXPlane {
 public:
  FakeXPlane() { start("B738"); }

  /// As after a start of X-Plane: nobody has asked for anything. Level flight, two engines.
  void start(const std::string& aircraft);
  std::string beacon(std::uint16_t port = 49000, std::uint32_t role = 1) const;
  void takeDatagram(const std::string& bytes);
  /// What it sends in a frame: the position and the values that were asked for.
  std::vector<std::string> frame();

  std::map<std::string, float> values;
  double latitude_deg = 0;
  double longitude_deg = 0;
  double elevation_m = 0;
  int requests = 0;  ///< for values
  std::vector<std::string> commands;

 private:
  std::map<std::int32_t, std::string> asked_;
  bool sendsPosition_ = false;
};

}  // namespace vorlent
