#include "web/qt/PageServer.h"

#include <QTimer>
#include <boost/asio/io_context.hpp>
#include <utility>

#include "base/RuntimeError.h"
#include "web/qt/win32/PageConnection.h"

namespace vorlent {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;
using Fault = boost::system::error_code;

/// How often the sockets are looked at while a browser is connected. That timer is a precise one: a
/// patient one waits behind all other messages, and records then come more than a second late on a
/// busy machine. It holds the whole machine at a resolution of 1 ms, so it runs for no longer.
constexpr int LookConnected_ms = 20;
/// How often it is looked whether a browser comes.
constexpr int LookAlone_ms = 250;

}  // namespace

class PageServer::Listener {
 public:
  Listener(const std::string& address, std::uint16_t port, PageHub& hub);

  std::uint16_t port() const { return acceptor_.local_endpoint().port(); }
  void admit(Access access) { site_.access = std::move(access); }

 private:
  void listen(const tcp::endpoint& place);
  void welcome();
  void look();
  void keepPace();

  PageSite site_;
  asio::io_context io_{1};  ///< of this thread
  tcp::acceptor acceptor_{io_};
  QTimer timer_;
};

PageServer::Listener::Listener(const std::string& address, std::uint16_t port, PageHub& hub)
    : site_{hub} {
  try {
    listen({asio::ip::make_address(address), port});
  } catch (const boost::system::system_error& error) {
    throw RuntimeError(RuntimeError::PathAccess, "cannot serve the page at " + address + ":" +
                                                     std::to_string(port) + ": " +
                                                     error.code().message());
  }
  welcome();
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
  look();
}

void PageServer::Listener::listen(const tcp::endpoint& place) {
  acceptor_.open(place.protocol());
  // Without it another program could take the port a second time.
  const BOOL on = TRUE;
  setsockopt(acceptor_.native_handle(), SOL_SOCKET, SO_EXCLUSIVEADDRUSE,
             reinterpret_cast<const char*>(&on), sizeof on);
  acceptor_.bind(place);
  acceptor_.listen();
}

void PageServer::Listener::welcome() {
  acceptor_.async_accept([this](Fault fault, tcp::socket socket) {
    if (fault == asio::error::operation_aborted) return;
    if (!fault && site_.connections < PageConnection::MostConnections) {
      Fault ignored;
      socket.set_option(tcp::no_delay(true), ignored);
      std::make_shared<PageConnection>(PageStream(std::move(socket)), site_)->start();
    }
    welcome();
  });
}

void PageServer::Listener::look() {
  while (io_.poll() > 0) {
  }
  keepPace();
}

void PageServer::Listener::keepPace() {
  const bool connected = site_.connections > 0;
  const int pace_ms = connected ? LookConnected_ms : LookAlone_ms;
  if (timer_.isActive() && timer_.interval() == pace_ms) return;
  timer_.setTimerType(connected ? Qt::PreciseTimer : Qt::CoarseTimer);
  timer_.start(pace_ms);
}

PageServer::PageServer(const std::string& address, std::uint16_t port, PageHub& hub)
    : listener_(std::make_unique<Listener>(address, port, hub)) {}

PageServer::~PageServer() = default;

std::uint16_t PageServer::port() const { return listener_->port(); }

void PageServer::admit(Access access) { listener_->admit(std::move(access)); }

}  // namespace vorlent
