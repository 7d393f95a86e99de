#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "display/DisplayClient.h"
#include "platform/UdpSocket.h"

namespace vorlent {

/// Where a session is to be and what it asks for, as a user says it.
struct SessionWish {
  std::string host;
  std::uint16_t port;
  int interval_ms;
  std::string machine;  ///< empty means this one
};

/// `addresses` are those of the host, at least one.
DisplayClient::Settings serverSettings(const SessionWish& wish, std::vector<std::string> addresses,
                                       Network& network);

}  // namespace vorlent
