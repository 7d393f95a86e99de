#pragma once

#include <string>

#include "support/FakeNetwork.h"

namespace vorlent {

/// A machine whose address is 10.0.0.7 and whose displays receive on every address it has. The
/// display's socket has port 0 here, which on a real network stands for any free one.
class DisplayNetwork : public FakeNetwork {
 public:
  DisplayNetwork() { ownAddress = "0.0.0.0"; }
  std::string localIp() override { return "10.0.0.7"; }

  void deliverFrom(const Endpoint& server, const std::string& text) { deliver(0, server, text); }
  /// The datagrams sent since the last call, each with its receiver: "10.0.0.7:5000 text".
  std::vector<std::string> takeTexts() {
    std::vector<std::string> texts;
    for (const Sent& sent : takeSent())
      texts.push_back(sent.to.address + ":" + std::to_string(sent.to.port) + " " + sent.text);
    return texts;
  }
};

}  // namespace vorlent
