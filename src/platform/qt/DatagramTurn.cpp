#include "platform/qt/DatagramTurn.h"

#include <QAbstractEventDispatcher>
#include <QMetaObject>
#include <algorithm>

namespace vorlent {
namespace {

constexpr qint64 Most_ns = 5'000'000;

}  // namespace

DatagramTurn::DatagramTurn() {
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                   &context_, [this]() noexcept { begun_.invalidate(); });
}

bool DatagramTurn::timeLeft() {
  if (!begun_.isValid()) begun_.start();
  return begun_.nsecsElapsed() < Most_ns;
}

void DatagramTurn::queue(DatagramReceiver& receiver) {
  if (hasQueued(receiver)) return;
  queued_.push_back(&receiver);
  callForNext();
}

bool DatagramTurn::hasQueued(const DatagramReceiver& receiver) const {
  return std::find(queued_.begin(), queued_.end(), &receiver) != queued_.end();
}

void DatagramTurn::forget(const DatagramReceiver& receiver) { std::erase(queued_, &receiver); }

/// An event for each receiver: one whose takeTurn() runs an event loop of its own does not hold up
/// the others.
void DatagramTurn::callForNext() {
  QMetaObject::invokeMethod(
      &context_, [this]() noexcept { serveNext(); }, Qt::QueuedConnection);
}

void DatagramTurn::serveNext() {
  if (queued_.empty()) return;
  if (!timeLeft()) return callForNext();
  DatagramReceiver& next = *queued_.front();
  queued_.pop_front();
  next.takeTurn();
}

}  // namespace vorlent
