#pragma once

#include "platform/PolledSockets.h"

namespace vorlent {

/// More than a socket keeps of records. A flood is taken in parts, so that clients are answered
/// in between.
constexpr int MostAtOnce = 256;

/// Calls take(datagram) for what waits at the socket.
template <class Take>
void takeWaiting(PolledDatagrams& socket, Take&& take) {
  for (int i = 0; i < MostAtOnce; ++i) {
    const auto datagram = socket.receive();
    if (!datagram) return;
    take(*datagram);
  }
}

}  // namespace vorlent
