#pragma once

#include <QWidget>

#include "sticks/CurvePicture.h"
#include "window/Binder.h"

class QPainter;

namespace vorlent {

class frmXY;

/// Paints the graph of a response curve as large as there is room, and hands mouse and keys on.
class CurveView : public QWidget {
 public:
  CurveView(frmXY& form, const Binder& binder, Guard guard, QWidget* parent);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) noexcept override;
  void mousePressEvent(QMouseEvent* event) noexcept override;
  void mouseMoveEvent(QMouseEvent* event) noexcept override;
  void mouseReleaseEvent(QMouseEvent* event) noexcept override;
  void keyPressEvent(QKeyEvent* event) noexcept override;

 private:
  double unitsPerPixel() const;
  QPointF origin() const;
  QPointF at(Picture::Place place) const;
  Picture::Place placeOf(const QPointF& pixel) const;
  void paintScales(QPainter& painter, const CurvePicture& picture) const;
  void paintCurve(QPainter& painter, const CurvePicture& picture) const;
  void paintMarker(QPainter& painter, const CurvePicture& picture) const;

  frmXY& form_;
  Guard guard_;
};

}  // namespace vorlent
