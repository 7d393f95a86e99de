#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace vorlent {

/// A FlightGear of ours: it reads the protocol files as FlightGear does, keeps a tree of
/// properties, sends records of them, takes datagrams and lines. Written from README.protocol,
/// apart from the bridge.
class FakeFlightGear {
 public:
  /// The texts of the two protocol files.
  FakeFlightGear(const std::string& recordFile, const std::string& controlFile);

  /// An aircraft in level flight with two engines.
  void start(const std::string& aircraft);
  /// Time passes in the simulator.
  void pass(double duration_s) { tree["/sim/time/elapsed-sec"] += duration_s; }
  std::string record() const;
  void takeDatagram(const std::string& text);
  /// What comes back for a line of the property server.
  std::string answerTo(const std::string& line);

  std::map<std::string, double> tree;
  std::vector<std::string> lines;  ///< that came to the property server
  int datagrams = 0;

 private:
  std::vector<std::string> recorded_;
  std::vector<std::string> controlled_;
  std::uint32_t mark_ = 0;
  std::string aircraft_;
};

}  // namespace vorlent
