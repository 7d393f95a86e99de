#include "display/serverSettings.h"

#include <algorithm>
#include <utility>

namespace vorlent {

// A server takes one address of its machine. So a name that means this machine stands for the
// address that a server takes there, too.
DisplayClient::Settings serverSettings(const SessionWish& wish, std::vector<std::string> addresses,
                                       Network& network) {
  const bool named = addresses.empty() || addresses.front() != wish.host;
  const bool thisMachine = std::all_of(addresses.begin(), addresses.end(), [](const auto& address) {
    return address.starts_with("127.");
  });
  if (named && thisMachine) addresses.push_back(network.localIp());
  return {{addresses.front(), wish.port},
          wish.interval_ms,
          wish.machine.empty() ? network.localHostName() : wish.machine,
          {addresses.begin() + 1, addresses.end()}};
}

}  // namespace vorlent
