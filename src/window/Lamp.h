#pragma once

#include <QColor>
#include <QWidget>

namespace vorlent {

/// Of red + 256 * green + 65536 * blue.
inline QColor colourOf(int colour) {
  return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

/// A round lamp, as high as a line of text. One that is not lit has the colour of the window.
class Lamp : public QWidget {
 public:
  explicit Lamp(QWidget* parent = nullptr);
  void show(const QColor& colour, bool lit);
  using QWidget::show;
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) noexcept override;

 private:
  QColor colour_ = Qt::white;
  bool lit_ = false;
};

}  // namespace vorlent
