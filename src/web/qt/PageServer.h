#pragma once

#include <QHttpServer>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "web/Access.h"
#include "web/PageHub.h"
#include "web/qt/ConnectionGate.h"

class QWebSocket;

namespace vorlent {

/// The page's files over HTTP, and its connection over WebSocket at the same port.
class PageServer {
 public:
  /// Where browsers connect to the hub.
  static constexpr const char* LivePath = "/live";

  /// Listens at once; port 0 is any free one. Raises RuntimeError when it cannot.
  PageServer(const std::string& address, std::uint16_t port, PageHub& hub);
  ~PageServer();

  std::uint16_t port() const;
  /// Nobody is let in before.
  void admit(Access access) { access_ = std::move(access); }

 private:
  class Browser;

  void answer(const QHttpServerRequest& request, QHttpServerResponder&& responder) const;
  QHttpServerResponse answerTo(const QHttpServerRequest& request) const;
  void welcome();
  void forget(Browser& browser);

  PageHub& hub_;
  std::optional<Access> access_;
  std::map<Browser*, std::unique_ptr<Browser>> browsers_;
  QHttpServer http_;
  ConnectionGate* gate_;  ///< of http_
};

}  // namespace vorlent
