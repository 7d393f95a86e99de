#pragma once

#include <boost/beast/websocket.hpp>
#include <deque>
#include <memory>
#include <string>

#include "web/qt/win32/PageConnection.h"

namespace vorlent {

/// A WebSocket with a page of ours at its other end.
class LivePage : public Page, public std::enable_shared_from_this<LivePage> {
 public:
  /// `counted` is let go with the connection.
  LivePage(PageStream stream, PageHub& hub, std::shared_ptr<void> counted);

  /// Answers the request. Whoever may not be here is told so by the close that follows.
  void accept(const PageHead& head, bool may);

  void send(const std::string& message) override;
  bool isBehind() const override;
  void end() override;

 private:
  void join();
  void read();
  void take();
  void write();

  boost::beast::websocket::stream<PageStream> socket_;
  PageHub& hub_;
  std::shared_ptr<void> counted_;
  boost::beast::flat_buffer incoming_;
  std::deque<std::string> outgoing_;  ///< the first is on its way
  std::size_t waiting_bytes_ = 0;
};

}  // namespace vorlent
