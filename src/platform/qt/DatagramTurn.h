#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <deque>

namespace vorlent {

/// Who receives datagrams when his turn comes.
class DatagramReceiver {
 public:
  virtual ~DatagramReceiver() = default;
  virtual void takeTurn() = 0;
};

/// What the datagrams of all sockets together may take of one turn of the event loop, so that a
/// flood of them does not keep the timers waiting: 5 ms from the turn's first one. Who has more to
/// do queues for a later turn; who has queued longest comes first, so that a flood on one socket
/// does not keep the others waiting either.
class DatagramTurn {
 public:
  DatagramTurn();

  /// May be asked at any time; the first to ask begins the 5 ms.
  bool timeLeft();
  /// Has takeTurn() called in a later turn that has time left. Queues once only.
  void queue(DatagramReceiver& receiver);
  bool hasQueued(const DatagramReceiver& receiver) const;
  void forget(const DatagramReceiver& receiver);

 private:
  void callForNext();
  void serveNext();

  QElapsedTimer begun_;
  std::deque<DatagramReceiver*> queued_;
  QObject context_;
};

}  // namespace vorlent
