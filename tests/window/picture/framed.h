#pragma once

#include <QPainter>
#include <QPixmap>
#include <QWidget>

namespace vorlent {

/// The height of the caption over a window.
constexpr int Title_px = 28;

/// The window with its caption over it, as a desktop would frame it.
inline QPixmap framed(QWidget& window) {
  const qreal scale = window.devicePixelRatio();
  QPixmap picture(QSize(window.width() + 2, window.height() + Title_px + 1) * scale);
  picture.setDevicePixelRatio(scale);
  picture.fill(QColor(0x3b, 0x48, 0x56));
  QPainter painter(&picture);
  painter.setPen(Qt::white);
  painter.drawText(QRect(0, 0, window.width() + 2, Title_px), Qt::AlignCenter,
                   window.windowTitle());
  painter.drawPixmap(1, Title_px, window.grab());
  return picture;
}

}  // namespace vorlent
