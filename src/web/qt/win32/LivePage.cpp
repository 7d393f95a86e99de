#include "web/qt/win32/LivePage.h"

#include <boost/asio/post.hpp>
#include <utility>

#include "web/pageCommands.h"

namespace vorlent {
namespace {

namespace beast = boost::beast;
namespace websocket = beast::websocket;
using Fault = beast::error_code;

/// Twenty records that a browser has not taken.
constexpr std::size_t MostWaiting_bytes = std::size_t{160} * 1024;
/// Browsers answer a ping, which is sent after half of this time of silence.
constexpr std::chrono::seconds LongestSilence{60};
constexpr std::chrono::seconds LongestHandshake{30};

}  // namespace

LivePage::LivePage(PageStream stream, PageHub& hub, std::shared_ptr<void> counted)
    : socket_(std::move(stream)), hub_(hub), counted_(std::move(counted)) {
  beast::get_lowest_layer(socket_).expires_never();
  socket_.set_option(
      websocket::stream_base::timeout{LongestHandshake, LongestSilence, /*keep_alive_pings=*/true});
  socket_.read_message_max(LongestPageMessage_bytes);
  socket_.text(true);
}

void LivePage::accept(const PageHead& head, bool may) {
  socket_.async_accept(head, [self = shared_from_this(), may](Fault fault) {
    if (fault) return;
    if (may)
      self->join();
    else
      self->socket_.async_close(websocket::close_code::policy_error, [self](Fault) {});
  });
}

void LivePage::join() {
  if (hub_.join(*this)) read();
}

void LivePage::read() {
  socket_.async_read(incoming_, [self = shared_from_this()](Fault fault, std::size_t) {
    if (fault) {
      self->hub_.leave(*self);
      return;
    }
    self->take();
    self->read();
  });
}

void LivePage::take() {
  if (socket_.got_text()) hub_.take(*this, beast::buffers_to_string(incoming_.data()));
  incoming_.clear();
}

void LivePage::send(const std::string& message) {
  outgoing_.push_back(message);
  waiting_bytes_ += message.size();
  if (outgoing_.size() == 1) write();
}

void LivePage::write() {
  socket_.async_write(boost::asio::buffer(outgoing_.front()),
                      [self = shared_from_this()](Fault fault, std::size_t) {
                        if (fault) return;
                        self->waiting_bytes_ -= self->outgoing_.front().size();
                        self->outgoing_.pop_front();
                        if (!self->outgoing_.empty()) self->write();
                      });
}

bool LivePage::isBehind() const { return waiting_bytes_ > MostWaiting_bytes; }

void LivePage::end() {
  boost::asio::post(socket_.get_executor(), [self = shared_from_this()] {
    beast::get_lowest_layer(self->socket_).close();
  });
}

}  // namespace vorlent
