#include "platform/qt/QtNetwork.h"

#include <QHostAddress>
#include <QHostInfo>
#include <QNetworkInterface>
#include <QNetworkProxy>
#include <QUdpSocket>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/qt/DatagramTurn.h"
#include "platform/qt/SocketErrors.h"

namespace vorlent {
namespace {

/// Four decimal numbers and nothing shorter: Qt would also take "1" for 0.0.0.1.
QHostAddress addressOf(const std::string& dotted) {
  const QString text = QString::fromStdString(dotted);
  QHostAddress address(text);
  if (address.protocol() != QAbstractSocket::IPv4Protocol || address.toString() != text)
    throw RuntimeError(SocketError::AddressNotAvailable, "\"" + dotted + "\" is no IPv4 address");
  return address;
}

/// Qt's socket with our receiving. Outlives QtUdpSocket when that goes inside a datagram's handler.
class ReceivingSocket : public QUdpSocket, private DatagramReceiver {
 public:
  explicit ReceivingSocket(std::shared_ptr<DatagramTurn> turn) : turn_(std::move(turn)) {
    setProxy(QNetworkProxy::NoProxy);
    connect(this, &QUdpSocket::readyRead, this, [this]() noexcept {
      if (!turn_->hasQueued(*this)) takeTurn();
    });
  }
  ~ReceivingSocket() override { turn_->forget(*this); }

  UdpSocket::DatagramHandler handler;
  std::vector<char> buffer = std::vector<char>(UdpSocket::MaxReceived_bytes);
  /// What a handler left for a later turn; comes before the next datagram.
  std::function<void()> rest;
  bool receiving() const { return receiving_; }
  bool turnIsOver() const { return !turn_->timeLeft(); }
  [[noreturn]] void raiseError() const { throw socketError(error(), errorString().toStdString()); }

 private:
  // Reads even if nothing seems to wait: an error that stands in for a datagram has to be fetched,
  // or Qt never tells of another datagram.
  void takeTurn() override {
    if (receiving_) return;
    receiving_ = true;
    bool more = true;
    for (; more && turn_->timeLeft(); more = rest || moreWait()) takeNext();
    receiving_ = false;
    if (more) turn_->queue(*this);
  }

  void takeNext() {
    if (rest)
      std::exchange(rest, {})();
    else
      receiveOne();
  }

  bool moreWait() const { return state() == BoundState && hasPendingDatagrams(); }

  void receiveOne() {
    if (state() != BoundState) return;
    QHostAddress sender;
    quint16 port = 0;
    const qint64 size =
        readDatagram(buffer.data(), static_cast<qint64>(buffer.size()), &sender, &port);
    if (size < 0 || !handler) return;
    handler({sender.toString().toStdString(), port},
            std::string(buffer.data(), static_cast<std::size_t>(size)));
  }

  std::shared_ptr<DatagramTurn> turn_;
  bool receiving_ = false;
};

class QtUdpSocket : public UdpSocket {
 public:
  explicit QtUdpSocket(std::shared_ptr<DatagramTurn> turn)
      : socket_(std::make_unique<ReceivingSocket>(std::move(turn))) {}
  ~QtUdpSocket() override {
    close();
    socket_->rest = {};
    if (socket_->receiving()) socket_.release()->deleteLater();
  }

  void onDatagram(DatagramHandler handler) override { socket_->handler = std::move(handler); }

  void bind(std::uint16_t port, const std::string& address) override {
    socket_->buffer.resize(receiveLimit_bytes());
    if (!socket_->bind(addressOf(address), port, QAbstractSocket::DontShareAddress))
      socket_->raiseError();
  }

  void close() override { socket_->close(); }

  void send(const Endpoint& receiver, std::string_view datagram) override {
    const auto sent = socket_->writeDatagram(datagram.data(), static_cast<qint64>(datagram.size()),
                                             parsed(receiver.address), receiver.port);
    if (sent < 0) socket_->raiseError();
  }

  bool turnIsOver() const override { return socket_->turnIsOver(); }
  void continueLater(std::function<void()> rest) override { socket_->rest = std::move(rest); }

 private:
  // A stream goes to one receiver, whose address needs to be understood once.
  const QHostAddress& parsed(const std::string& address) {
    if (address != parsedText_ || parsed_.isNull()) {
      parsed_ = addressOf(address);
      parsedText_ = address;
    }
    return parsed_;
  }

  std::unique_ptr<ReceivingSocket> socket_;
  std::string parsedText_;
  QHostAddress parsed_;
};

bool isOutside(const QNetworkInterface& candidate) {
  return candidate.flags().testFlag(QNetworkInterface::IsUp) &&
         !candidate.flags().testFlag(QNetworkInterface::IsLoopBack);
}

}  // namespace

QtNetwork::QtNetwork(std::string ownIp)
    : ownIp_(std::move(ownIp)), turn_(std::make_shared<DatagramTurn>()) {}

QtNetwork::~QtNetwork() = default;

std::unique_ptr<UdpSocket> QtNetwork::createSocket() {
  return std::make_unique<QtUdpSocket>(turn_);
}

std::string QtNetwork::localIp() {
  if (!ownIp_.empty()) return ownIp_;
  for (const auto& candidate : QNetworkInterface::allInterfaces()) {
    if (!isOutside(candidate)) continue;
    for (const auto& entry : candidate.addressEntries())
      if (entry.ip().protocol() == QAbstractSocket::IPv4Protocol)
        return entry.ip().toString().toStdString();
  }
  return "127.0.0.1";
}

std::string QtNetwork::localHostName() { return QHostInfo::localHostName().toStdString(); }

std::vector<std::string> QtNetwork::attachedNetworks() {
  std::vector<std::string> networks;
  for (const auto& candidate : QNetworkInterface::allInterfaces()) {
    if (!candidate.flags().testFlag(QNetworkInterface::IsUp)) continue;
    for (const auto& entry : candidate.addressEntries())
      if (entry.ip().protocol() == QAbstractSocket::IPv4Protocol)
        networks.push_back(entry.ip().toString().toStdString() + "/" +
                           std::to_string(entry.prefixLength()));
  }
  return networks;
}

}  // namespace vorlent
