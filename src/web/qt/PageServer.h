#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "web/Access.h"
#include "web/PageHub.h"

namespace vorlent {

/// The page's files over HTTP, and its connection over WebSocket at the same port.
class PageServer {
 public:
  /// Listens at once; port 0 is any free one. Raises RuntimeError when it cannot.
  PageServer(const std::string& address, std::uint16_t port, PageHub& hub);
  ~PageServer();
  PageServer(const PageServer&) = delete;
  PageServer& operator=(const PageServer&) = delete;

  std::uint16_t port() const;
  /// Nobody is let in before.
  void admit(Access access);

 private:
  class Listener;
  std::unique_ptr<Listener> listener_;
};

}  // namespace vorlent
