#pragma once

#include <QComboBox>

#include "window/Binder.h"

namespace vorlent {

/// A list that is searched by typing any part of a name, in any case of letters. Enter takes the
/// first entry that fits; leaving the box puts the selected one's name back. `spoken` is its
/// accessible name.
class SearchBox : public QComboBox {
 public:
  SearchBox(ComboBox& box, const QString& spoken, const Binder& binder, QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) noexcept override;
  void hideEvent(QHideEvent* event) noexcept override;

 private:
  void takeFirstMatch(const QString& typed);
  void showSelected();
};

}  // namespace vorlent
