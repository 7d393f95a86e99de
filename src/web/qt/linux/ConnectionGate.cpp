#include "web/qt/linux/ConnectionGate.h"

#include <QTcpSocket>
#include <QTimer>
#include <memory>

#include "web/RateLimit.h"

namespace vorlent {

ConnectionGate::ConnectionGate() { clock_.start(); }

void ConnectionGate::keep(const QHostAddress& peer, quint16 port) {
  kept_.insert({peer.toString(), port});
}

void ConnectionGate::incomingConnection(qintptr descriptor) {
  auto socket = std::make_unique<QTcpSocket>();
  if (!socket->setSocketDescriptor(descriptor) || connections_ >= MostConnections) return;
  socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
  watch(*socket);
  socket->setParent(this);
  addPendingConnection(socket.release());
}

// Its slots come first: whoever reads the bytes connects after this.
void ConnectionGate::watch(QTcpSocket& socket) {
  ++connections_;
  const Peer peer{socket.peerAddress().toString(), socket.peerPort()};
  connect(&socket, &QObject::destroyed, this, [this, peer] {
    --connections_;
    kept_.erase(peer);
  });
  const auto now_ms = [this] { return static_cast<std::uint32_t>(clock_.elapsed()); };
  connect(&socket, &QTcpSocket::readyRead, this,
          [&socket, now_ms, limit = RateLimit(BytesAtOnce, BytesPerSecond, now_ms())]() mutable {
            if (!limit.take(static_cast<double>(socket.bytesAvailable()), now_ms())) socket.abort();
          });
  QTimer::singleShot(LongestRequest_ms, &socket, [this, &socket, peer] {
    if (!kept_.contains(peer)) socket.abort();
  });
}

}  // namespace vorlent
