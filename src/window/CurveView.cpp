#include "window/CurveView.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "sticks/frmXY.h"
#include "window/virtualKeys.h"

namespace vorlent {
namespace {

/// Of the window's letters, for the scales.
constexpr double ScaleLetters = 0.85;

int buttonOf(Qt::MouseButton button) {
  if (button == Qt::LeftButton) return Picture::LeftButton;
  return button == Qt::RightButton ? Picture::RightButton : Picture::MiddleButton;
}

int maskOf(Qt::KeyboardModifiers held) {
  return (held.testFlag(Qt::ShiftModifier) ? Held::Shift : 0) +
         (held.testFlag(Qt::ControlModifier) ? Held::Ctrl : 0) +
         (held.testFlag(Qt::AltModifier) ? Held::Alt : 0);
}

/// With all digits that tell it from its neighbours.
std::string textOf(Picture::Place place) {
  constexpr int Digits = 9;
  return (QString::number(double{place.x}, 'g', Digits) + ' ' +
          QString::number(double{place.y}, 'g', Digits))
      .toStdString();
}

}  // namespace

CurveView::CurveView(frmXY& form, const Binder& binder, Guard guard, QWidget* parent)
    : QWidget(parent), form_(form), guard_(std::move(guard)) {
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName("Response curve");
  QFont letters = font();
  letters.setPointSizeF(letters.pointSizeF() * ScaleLetters);
  setFont(letters);
  setMinimumSize(sizeHint());
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  binder.bind(form.Pic1, *this);
}

/// So large that the scale's numbers fit into the margin at its left.
QSize CurveView::sizeHint() const {
  const double units = CurveScale::LeftMargin / (fontMetrics().horizontalAdvance("100") + 8.0);
  return QSizeF(CurveScale::Width / units, CurveScale::Height / units).toSize();
}

double CurveView::unitsPerPixel() const {
  return std::max(double{form_.Pic1.ScaleWidth} / width(),
                  double{form_.Pic1.ScaleHeight} / height());
}

/// The picture stands in the middle.
QPointF CurveView::origin() const {
  const double units = unitsPerPixel();
  return {(width() - form_.Pic1.ScaleWidth / units) / 2,
          (height() - form_.Pic1.ScaleHeight / units) / 2};
}

QPointF CurveView::at(Picture::Place place) const {
  return origin() + QPointF(place.x, place.y) / unitsPerPixel();
}

Picture::Place CurveView::placeOf(const QPointF& pixel) const {
  const QPointF place = (pixel - origin()) * unitsPerPixel();
  return {static_cast<float>(place.x()), static_cast<float>(place.y())};
}

void CurveView::paintEvent(QPaintEvent*) noexcept {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const CurvePicture picture = form_.picture();
  paintScales(painter, picture);
  paintCurve(painter, picture);
  paintMarker(painter, picture);
}

void CurveView::paintScales(QPainter& painter, const CurvePicture& picture) const {
  const QRectF graph(at(placeOfPercent(0, 100)), at(placeOfPercent(100, 0)));
  painter.fillRect(graph, palette().color(QPalette::Base));
  QColor grid = palette().color(QPalette::Text);
  grid.setAlphaF(0.18F);
  constexpr int Wide_px = 60;
  const double gap = CurveScale::PointReach / unitsPerPixel() + 1;
  for (const auto& tick : picture.ticks) {
    const QPointF x = at(tick.atX);
    const QPointF y = at(tick.atY);
    painter.setPen(grid);
    painter.drawLine(QPointF(x.x(), graph.top()), x);
    painter.drawLine(y, QPointF(graph.right(), y.y()));
    painter.setPen(palette().color(QPalette::WindowText));
    const QString text = QString::number(tick.percent);
    const int high = painter.fontMetrics().height();
    painter.drawText(QRectF(x.x() - Wide_px / 2.0, x.y() + gap, Wide_px, high), Qt::AlignHCenter,
                     text);
    painter.drawText(QRectF(y.x() - Wide_px - gap, y.y() - high / 2.0, Wide_px, high),
                     Qt::AlignRight, text);
  }
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(graph);
  if (!hasFocus()) return;
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.drawRect(graph);
}

void CurveView::paintCurve(QPainter& painter, const CurvePicture& picture) const {
  QPolygonF line;
  for (const auto& place : picture.curve) line << at(place);
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(line);
  const double reach = CurveScale::PointReach / unitsPerPixel();
  for (const auto& point : picture.points) {
    const QPointF middle = at(point.place);
    painter.setPen(QPen(palette().color(QPalette::Text), 1.5));
    painter.setBrush(point.inHand ? palette().color(QPalette::Highlight)
                                  : palette().color(QPalette::Base));
    painter.drawRect(QRectF(middle - QPointF(reach, reach), middle + QPointF(reach, reach)));
  }
}

/// Over the graph, with a line down to the output that stands.
void CurveView::paintMarker(QPainter& painter, const CurvePicture& picture) const {
  const QColor red(0xd3, 0x2f, 0x2f);
  QPolygonF triangle;
  for (const auto& place : picture.marker) triangle << at(place);
  painter.setPen(Qt::NoPen);
  painter.setBrush(red);
  painter.drawPolygon(triangle);
  painter.setPen(QPen(red, 1, Qt::DashLine));
  painter.drawLine(triangle.first(), at(picture.live));
  painter.setPen(Qt::NoPen);
  painter.drawEllipse(at(picture.live), 4, 4);
}

void CurveView::mousePressEvent(QMouseEvent* event) noexcept {
  const int button = buttonOf(event->button());
  const int held = maskOf(event->modifiers());
  const Picture::Place place = placeOf(event->position());
  guard_(Deed::MouseDown, form_.Pic1,
         std::to_string(button) + " " + std::to_string(held) + " " + textOf(place),
         [&] { form_.Pic1.mouseDown(button, held, place); });
}

void CurveView::mouseMoveEvent(QMouseEvent* event) noexcept {
  const Picture::Place place = placeOf(event->position());
  guard_(Deed::MouseMove, form_.Pic1, textOf(place), [&] { form_.Pic1.mouseMove(place); });
}

void CurveView::mouseReleaseEvent(QMouseEvent* event) noexcept {
  if (event->button() != Qt::LeftButton) return;
  const Picture::Place place = placeOf(event->position());
  guard_(Deed::MouseUp, form_.Pic1, textOf(place), [&] { form_.Pic1.mouseUp(place); });
}

/// What the graph has no use for goes on to the window.
void CurveView::keyPressEvent(QKeyEvent* event) noexcept {
  constexpr int PageUp = 33;
  constexpr int Down = 40;
  const int code = virtualKeyOf(*event);
  if (code < PageUp || code > Down) return QWidget::keyPressEvent(event);
  const int held = heldOf(*event);
  guard_(Deed::Key, form_.Pic1, std::to_string(code) + " " + std::to_string(held),
         [&] { form_.Pic1.keyDown(code, held); });
}

}  // namespace vorlent
