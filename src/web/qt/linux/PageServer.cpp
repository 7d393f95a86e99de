#include "web/qt/PageServer.h"

#include <QHttpServer>
#include <QUrlQuery>
#include <QWebSocket>
#include <map>
#include <optional>
#include <utility>

#include "base/RuntimeError.h"
#include "web/pageAnswers.h"
#include "web/pageCommands.h"
#include "web/qt/linux/ConnectionGate.h"
#include "web/qt/pageFiles.h"

namespace vorlent {
namespace {

using Status = QHttpServerResponder::StatusCode;

/// Twenty records that a browser has not taken.
constexpr qint64 MostWaiting_bytes = qint64{160} * 1024;

template <class Request>
Access::Caller callerOf(const Request& header) {
  return {header("Host").toStdString(), header("Origin").toStdString(),
          header("Cookie").toStdString()};
}

PageRequest readRequest(const QHttpServerRequest& request) {
  return {request.method() == QHttpServerRequest::Method::Get, request.url().path().toStdString(),
          request.query().queryItemValue("token").toStdString(),
          callerOf([&request](const QByteArray& name) { return request.value(name); })};
}

}  // namespace

class PageServer::Listener {
 public:
  Listener(const std::string& address, std::uint16_t port, PageHub& hub);

  std::uint16_t port() const { return gate_->serverPort(); }
  void admit(Access access) { access_ = std::move(access); }

 private:
  class Browser;

  void answer(const QHttpServerRequest& request, QHttpServerResponder&& responder) const;
  void welcome();
  void forget(Browser& browser);

  PageHub& hub_;
  std::optional<Access> access_;
  std::map<Browser*, std::unique_ptr<Browser>> browsers_;
  QHttpServer http_;
  ConnectionGate* gate_;  ///< of http_
};

/// A WebSocket with a page of ours at its other end.
class PageServer::Listener::Browser : public Page {
 public:
  Browser(Listener& server, std::unique_ptr<QWebSocket> socket)
      : server_(server), socket_(std::move(socket)) {
    socket_->setMaxAllowedIncomingMessageSize(LongestPageMessage_bytes);
    socket_->setMaxAllowedIncomingFrameSize(LongestPageMessage_bytes);
    QObject::connect(
        socket_.get(), &QWebSocket::textMessageReceived, socket_.get(),
        [this](const QString& text) { server_.hub_.take(*this, text.toLatin1().toStdString()); });
    QObject::connect(socket_.get(), &QWebSocket::disconnected, socket_.get(),
                     [this] { server_.forget(*this); });
  }
  ~Browser() override {
    socket_->disconnect();
    socket_.release()->deleteLater();
  }

  void send(const std::string& message) override {
    socket_->sendTextMessage(QString::fromLatin1(message.data(), static_cast<int>(message.size())));
  }
  bool isBehind() const override { return socket_->bytesToWrite() > MostWaiting_bytes; }
  void end() override {
    QMetaObject::invokeMethod(socket_.get(), &QWebSocket::abort, Qt::QueuedConnection);
  }

 private:
  Listener& server_;
  std::unique_ptr<QWebSocket> socket_;
};

PageServer::Listener::Listener(const std::string& address, std::uint16_t port, PageHub& hub)
    : hub_(hub), gate_(new ConnectionGate) {
  if (!gate_->listen(QHostAddress(QString::fromStdString(address)), port)) {
    const std::string why = gate_->errorString().toStdString();
    delete gate_;
    throw RuntimeError(RuntimeError::PathAccess, "cannot serve the page at " + address + ":" +
                                                     std::to_string(port) + ": " + why);
  }
  http_.bind(gate_);
  http_.setMissingHandler(
      [this](const QHttpServerRequest& request, QHttpServerResponder&& responder) {
        answer(request, std::move(responder));
      });
  // A request that becomes a WebSocket has to have a handler, which leaves it alone.
  http_.route(LivePath, [](const QHttpServerRequest& request, QHttpServerResponder&& responder) {
    if (request.value("Upgrade").isEmpty()) responder.write(Status::UpgradeRequired);
  });
  QObject::connect(&http_, &QHttpServer::newWebSocketConnection, &http_, [this] { welcome(); });
}

void PageServer::Listener::answer(const QHttpServerRequest& request,
                                  QHttpServerResponder&& responder) const {
  const PageAnswer answer = answerTo(readRequest(request), access_, pageFile);
  QHttpServerResponse response(QByteArray::fromStdString(answer.body.type),
                               QByteArray::fromStdString(answer.body.content),
                               static_cast<Status>(answer.status));
  for (const auto& [name, value] : answer.headers)
    response.addHeader(QByteArray::fromStdString(name), QByteArray::fromStdString(value));
  response.write(std::move(responder));
}

void PageServer::Listener::welcome() {
  while (auto socket = http_.nextPendingWebSocketConnection()) {
    const auto caller =
        callerOf([&socket](const QByteArray& name) { return socket->request().rawHeader(name); });
    if (!access_ || access_->mayConnect(caller) != Access::Verdict::Granted ||
        socket->requestUrl().path() != LivePath) {
      socket->close(QWebSocketProtocol::CloseCodePolicyViolated);
      socket.release()->deleteLater();
      continue;
    }
    gate_->keep(socket->peerAddress(), socket->peerPort());
    auto browser = std::make_unique<Browser>(*this, std::move(socket));
    if (!hub_.join(*browser)) continue;
    Browser* key = browser.get();
    browsers_.emplace(key, std::move(browser));
  }
}

void PageServer::Listener::forget(Browser& browser) {
  hub_.leave(browser);
  browsers_.erase(&browser);
}

PageServer::PageServer(const std::string& address, std::uint16_t port, PageHub& hub)
    : listener_(std::make_unique<Listener>(address, port, hub)) {}

PageServer::~PageServer() = default;

std::uint16_t PageServer::port() const { return listener_->port(); }

void PageServer::admit(Access access) { listener_->admit(std::move(access)); }

}  // namespace vorlent
