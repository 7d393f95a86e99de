#include "window/FittingScroll.h"

#include <QEvent>
#include <QScreen>

namespace vorlent {
namespace {

/// What a window manager, the closing buttons and the margins add, at most.
constexpr QSize Beside_px(40, 120);

}  // namespace

FittingScroll::FittingScroll(QWidget* parent) : QScrollArea(parent) {
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
}

QSize FittingScroll::minimumSizeHint() const {
  if (widget() == nullptr) return QScrollArea::minimumSizeHint();
  return widget()->minimumSizeHint().boundedTo(screen()->availableSize() - Beside_px);
}

QSize FittingScroll::sizeHint() const {
  if (widget() == nullptr) return QScrollArea::sizeHint();
  return widget()->sizeHint().boundedTo(screen()->availableSize() - Beside_px);
}

/// The window grows with what it holds.
bool FittingScroll::eventFilter(QObject* watched, QEvent* event) noexcept {
  const bool handled = QScrollArea::eventFilter(watched, event);
  if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
  return handled;
}

}  // namespace vorlent
