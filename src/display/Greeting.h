#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vorlent {

/// Interval at which a display can ask for records, in milliseconds.
constexpr int MinInterval_ms = 1;
constexpr int MaxInterval_ms = 65535;

/// The message that opens a session: "Connection on", two words that the server does not look at,
/// the interval in milliseconds and the machine's name. Raises InvalidCall for an interval outside
/// MinInterval_ms..MaxInterval_ms or a name that is no host name.
std::string greeting(int interval_ms, std::string_view machineName);

/// The server's answer to a greeting.
struct GreetingReply {
  int simulatorVersion = 0;  ///< code of the simulator's generation
  std::string folder;        ///< of the aircraft that is flown
  int engineCount = 0;
  int flapIncrement = 0;    ///< distance between two flap detents, on the scale of 16383
  std::string decimalMark;  ///< of the numbers in the records; can be empty
};

/// Nothing when the datagram is no reply.
std::optional<GreetingReply> readGreetingReply(std::string_view datagram);

}  // namespace vorlent
