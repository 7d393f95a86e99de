#pragma once

#include "platform/UdpSocket.h"
#include "tap/Tap.h"

namespace vorlent {

class TappedNetwork : public Network {
 public:
  TappedNetwork(Network& inner, Tap& tap) : inner_(inner), tap_(tap) {}

  std::unique_ptr<UdpSocket> createSocket() override;
  std::string localIp() override;
  std::string localHostName() override;
  std::vector<std::string> attachedNetworks() override;

 private:
  Network& inner_;
  Tap& tap_;
  std::uint32_t sockets_ = 0;
};

}  // namespace vorlent
