#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QWidget>
#include <stdexcept>
#include <string>

namespace vorlent {

/// The child of this kind and name; a test without it fails.
template <class T>
T& child(const QWidget& window, const char* name) {
  T* found = window.findChild<T*>(name);
  if (!found) throw std::runtime_error(std::string("no widget ") + name);
  return *found;
}

/// What stands on a button or beside a box, without the mark of its key.
template <class Captioned>
QString captionOf(const Captioned& widget) {
  return widget.text().remove('&');
}

inline void click(QWidget& widget) { QTest::mouseClick(&widget, Qt::LeftButton); }

/// A check box takes no click beyond its text in every style.
inline void clickMark(QCheckBox& box) {
  QTest::mouseClick(&box, Qt::LeftButton, {}, {box.iconSize().width() / 2, box.height() / 2});
}

/// Clicks into the box and types over what stands there.
inline void typeInto(QLineEdit& edit, const char* text) {
  click(edit);
  edit.selectAll();
  QTest::keyClicks(&edit, text);
}

/// Opens the menu and clicks its entry.
inline void chooseEntry(QMenuBar& bar, QMenu& menu, QAction& entry) {
  QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(menu.menuAction()).center());
  ASSERT_TRUE(menu.isVisible());
  QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&entry).center());
  ASSERT_FALSE(menu.isVisible());
}

inline void showActive(QWidget& window) {
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

}  // namespace vorlent
