#pragma once

#include <QScrollArea>

namespace vorlent {

/// As large as what it holds, or as the screen has room for: then it scrolls.
class FittingScroll : public QScrollArea {
 public:
  explicit FittingScroll(QWidget* parent);
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) noexcept override;

 private:
  QSize fitting(QSize whole) const;
};

}  // namespace vorlent
