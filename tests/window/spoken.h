#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <map>

namespace vorlent {

/// What a screen reader says of a box or button: its accessible name, the label that leads to it,
/// or what stands on it.
inline QString spokenName(const QWidget& widget) {
  if (!widget.accessibleName().isEmpty()) return widget.accessibleName();
  for (const auto* label : widget.window()->findChildren<QLabel*>())
    if (label->buddy() == &widget) return label->text().remove('&');
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  return button ? button->text().remove('&') : QString();
}

/// Everything in sight that takes the focus has a name of its own.
inline void expectNamesOfTheirOwn(const QWidget& window) {
  std::map<QString, int> names;
  for (const auto* widget : window.findChildren<QWidget*>()) {
    const bool spoken = qobject_cast<const QLineEdit*>(widget) ||
                        qobject_cast<const QComboBox*>(widget) ||
                        qobject_cast<const QAbstractButton*>(widget);
    if (!spoken || !widget->isVisible() || widget->focusPolicy() == Qt::NoFocus) continue;
    const QString name = spokenName(*widget);
    EXPECT_FALSE(name.isEmpty()) << widget->objectName().toStdString();
    // The line of a list that is searched is the list's.
    if (!qobject_cast<const QComboBox*>(widget->parentWidget())) ++names[name];
  }
  for (const auto& [name, uses] : names) EXPECT_EQ(uses, 1) << name.toStdString();
}

/// How often each key with Alt stands in sight.
inline std::map<QString, int> altKeysOf(const QWidget& window) {
  std::map<QString, int> keys;
  const auto count = [&keys](const QString& text) {
    const QString key = QKeySequence::mnemonic(text).toString();
    if (!key.isEmpty()) ++keys[key];
  };
  for (const auto* button : window.findChildren<QAbstractButton*>())
    if (button->isVisible()) count(button->text());
  for (const auto* label : window.findChildren<QLabel*>())
    if (label->buddy() && label->isVisible()) count(label->text());
  for (const auto* pages : window.findChildren<QTabWidget*>())
    for (int page = 0; page < pages->count(); ++page) count(pages->tabText(page));
  return keys;
}

inline void expectDifferentAltKeys(const QWidget& window) {
  for (const auto& [key, uses] : altKeysOf(window)) EXPECT_EQ(uses, 1) << key.toStdString();
}

}  // namespace vorlent
