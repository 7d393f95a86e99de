#include "window/Lamp.h"

#include <QPainter>

namespace vorlent {

Lamp::Lamp(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Lamp::sizeHint() const {
  const int side = fontMetrics().height();
  return {side, side};
}

void Lamp::show(const QColor& colour, bool lit) {
  colour_ = colour;
  lit_ = lit;
  update();
}

void Lamp::paintEvent(QPaintEvent*) noexcept {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.setBrush(lit_ ? colour_ : palette().color(QPalette::Base));
  painter.drawEllipse(QRectF(rect()).adjusted(2, 2, -2, -2));
}

}  // namespace vorlent
