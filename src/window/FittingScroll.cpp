#include "window/FittingScroll.h"

#include <QEvent>
#include <QScreen>
#include <QStyle>

namespace vorlent {
namespace {

/// What a window manager, the closing buttons and the margins add, at most.
constexpr QSize Beside_px(40, 120);

}  // namespace

FittingScroll::FittingScroll(QWidget* parent) : QScrollArea(parent) {
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

QSize FittingScroll::minimumSizeHint() const {
  if (widget() == nullptr) return QScrollArea::minimumSizeHint();
  return fitting(widget()->minimumSizeHint());
}

QSize FittingScroll::sizeHint() const {
  if (widget() == nullptr) return QScrollArea::sizeHint();
  return fitting(widget()->sizeHint());
}

/// A bar along one side takes room from the other, and shall not make a second bar.
QSize FittingScroll::fitting(QSize whole) const {
  const QSize room = screen()->availableSize() - Beside_px;
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const bool wide = whole.width() > room.width();
  const bool high = whole.height() > room.height();
  if (wide) whole.rheight() += bar;
  if (high) whole.rwidth() += bar;
  return whole.boundedTo(room);
}

/// The window grows with what it holds.
bool FittingScroll::eventFilter(QObject* watched, QEvent* event) noexcept {
  const bool handled = QScrollArea::eventFilter(watched, event);
  if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
  return handled;
}

}  // namespace vorlent
