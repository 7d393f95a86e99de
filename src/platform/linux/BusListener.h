#pragma once

#include <poll.h>

#include <chrono>
#include <list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/RequestListener.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/ForeignBlock.h"
#include "platform/linux/WindowSocket.h"

namespace vorlent {

/// Windows as sockets in a folder. A message is one packet, the message's text, a line feed and the
/// atom's text, which names the block; the answer is one packet with a signed 32-bit number.
class BusListener : public RequestListener {
 public:
  /// Raises as WindowSocket does.
  BusListener(const std::string& folder, const std::vector<std::string>& windowClasses,
              BlockServer server);

  void serve(int duration_ms) override;
  void endWhenReadable(int descriptor) override;

 private:
  struct Client {
    Descriptor socket;
    ForeignBlock block;
  };

  enum class Outcome { Answered, NothingThere, Gone };

  void handleReady(bool onlyOne);
  void accept(int listening);
  /// Answers one request, or when nobody else waits those that follow at once as well. False when
  /// the client is to be let go.
  bool attend(Client& client, bool alone);
  Outcome answer(Client& client, int receiveFlags);
  std::int32_t replyTo(Client& client, std::string_view packet);
  void watchAll();

  BlockServer server_;
  std::vector<WindowSocket> windows_;
  std::list<Client> clients_;
  int arrivals_ = -1;  ///< what else ends serve()
  /// The windows, then the clients, in their order, and at the end what else ends serve().
  std::vector<pollfd> watched_;
};

}  // namespace vorlent
