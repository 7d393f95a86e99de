#pragma once

#include <QElapsedTimer>
#include <QHostAddress>
#include <QTcpServer>
#include <cstdint>
#include <set>
#include <utility>

namespace vorlent {

/// Lets connections in, but not too many, and none that sends more than a browser with a page of
/// ours does. A request that never ends, or never begins, is cut off after a while.
class ConnectionGate : public QTcpServer {
 public:
  static constexpr int MostConnections = 128;
  static constexpr int BytesAtOnce = 64 * 1024;
  static constexpr int BytesPerSecond = 16 * 1024;
  static constexpr int LongestRequest_ms = 60'000;

  ConnectionGate();

  /// This one carries records and commands: it may stay as long as it likes.
  void keep(const QHostAddress& peer, quint16 port);

 protected:
  void incomingConnection(qintptr descriptor) override;

 private:
  using Peer = std::pair<QString, quint16>;

  void watch(QTcpSocket& socket);

  QElapsedTimer clock_;
  int connections_ = 0;
  std::set<Peer> kept_;
};

}  // namespace vorlent
