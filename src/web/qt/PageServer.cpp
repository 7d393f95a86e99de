#include "web/qt/PageServer.h"

#include <QUrlQuery>
#include <QWebSocket>
#include <utility>

#include "base/RuntimeError.h"
#include "web/pageCommands.h"
#include "web/qt/pageFiles.h"

namespace vorlent {
namespace {

using Status = QHttpServerResponder::StatusCode;

/// Twenty records that a browser has not taken.
constexpr qint64 MostWaiting_bytes = qint64{160} * 1024;

constexpr const char* TokenAsked =
    "This page asks for a token. Open the address that vorlent-web printed when it started, or "
    "scan "
    "its QR code.";
constexpr const char* HostUnknown =
    "This page is served to this machine alone, under the names localhost and 127.0.0.1.";

template <class Request>
Access::Caller callerOf(const Request& header) {
  return {header("Host").toStdString(), header("Origin").toStdString(),
          header("Cookie").toStdString()};
}

Access::Caller callerOf(const QHttpServerRequest& request) {
  return callerOf([&request](const QByteArray& name) { return request.value(name); });
}

QHttpServerResponse plain(const char* text, Status status) {
  return QHttpServerResponse("text/plain; charset=utf-8", QByteArray(text), status);
}

/// Scripts, styles and connections of this place alone, and nobody frames the page.
QByteArray contentPolicy(const QByteArray& host) {
  return "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; "
         "manifest-src 'self'; connect-src 'self' ws://" +
         host + "; base-uri 'none'; form-action 'none'; frame-ancestors 'none'";
}

}  // namespace

/// A WebSocket with a page of ours at its other end.
class PageServer::Browser : public Page {
 public:
  Browser(PageServer& server, std::unique_ptr<QWebSocket> socket)
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
  PageServer& server_;
  std::unique_ptr<QWebSocket> socket_;
};

PageServer::PageServer(const std::string& address, std::uint16_t port, PageHub& hub)
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

PageServer::~PageServer() = default;

std::uint16_t PageServer::port() const { return gate_->serverPort(); }

void PageServer::answer(const QHttpServerRequest& request, QHttpServerResponder&& responder) const {
  QHttpServerResponse response = answerTo(request);
  const QByteArray host = request.value("Host");
  response.addHeader("Content-Security-Policy",
                     contentPolicy(isHostText(host.toStdString()) ? host : ""));
  response.addHeader("X-Content-Type-Options", "nosniff");
  response.addHeader("Referrer-Policy", "no-referrer");
  response.addHeader("Cross-Origin-Resource-Policy", "same-origin");
  response.addHeader("Cross-Origin-Opener-Policy", "same-origin");
  response.addHeader("Cache-Control", "no-store");
  response.write(std::move(responder));
}

QHttpServerResponse PageServer::answerTo(const QHttpServerRequest& request) const {
  if (request.method() != QHttpServerRequest::Method::Get)
    return plain("Only GET is answered here.", Status::MethodNotAllowed);
  const std::string token = request.query().queryItemValue("token").toStdString();
  if (access_ && access_->isToken(token)) {
    QHttpServerResponse entry("text/plain", QByteArray(), Status::SeeOther);
    entry.addHeader("Location", "/");
    entry.addHeader("Set-Cookie", QByteArray::fromStdString(access_->cookie()));
    return entry;
  }
  const auto verdict = access_ ? access_->maySee(callerOf(request)) : Access::Verdict::NoToken;
  if (verdict == Access::Verdict::UnknownHost)
    return plain(HostUnknown, Status::MisdirectedRequest);
  if (verdict != Access::Verdict::Granted) return plain(TokenAsked, Status::Unauthorized);
  const auto file = pageFile(request.url().path());
  if (!file) return plain("There is no such file.", Status::NotFound);
  return QHttpServerResponse(file->type, file->content);
}

void PageServer::welcome() {
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

void PageServer::forget(Browser& browser) {
  hub_.leave(browser);
  browsers_.erase(&browser);
}

}  // namespace vorlent
