#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/PolledSockets.h"

namespace vorlent {

/// FlightGear's property server, which speaks lines of text over TCP. It is connected to again and
/// again until it is there; what is set meanwhile goes out then, the newest value of each property.
class PropertyServer {
 public:
  using Answer = std::function<void(const std::string& line)>;

  PropertyServer(PolledSockets& sockets, Endpoint server, Answer onAnswer);

  void advance(double now_s);
  void set(const std::string& property, double value);
  /// The answer comes as a line. What is asked while there is no connection is dropped.
  void ask(const std::string& property);
  bool open() const { return open_; }
  /// How often it was connected to.
  unsigned long connections() const { return connections_; }

 private:
  static constexpr double Retry_s = 2;
  static constexpr std::size_t LongestLine = 4096;

  void connect(double now_s);
  void greet();
  void take(const std::string& text);
  void flush();
  void say(const std::string& line);

  PolledSockets& sockets_;
  Endpoint server_;
  Answer onAnswer_;
  std::unique_ptr<PolledConnection> connection_;
  std::map<std::string, double> waiting_;
  std::string partial_;
  unsigned long connections_ = 0;
  bool open_ = false;
  double nextTry_s_ = 0;
};

}  // namespace vorlent
