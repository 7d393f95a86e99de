#include "window/SearchBox.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>

namespace vorlent {
namespace {

/// Longer names are seen in the list.
constexpr int SeenLetters = 26;
constexpr int SeenRows = 16;

}  // namespace

SearchBox::SearchBox(ComboBox& box, const QString& spoken, const Binder& binder, QWidget* parent)
    : QComboBox(parent) {
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(SeenLetters);
  setMaxVisibleItems(SeenRows);
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  binder.bind(box, *this);
  completer()->setFilterMode(Qt::MatchContains);
  completer()->setCompletionMode(QCompleter::PopupCompletion);
  completer()->setMaxVisibleItems(SeenRows);
  // On Linux the name of a list is what is selected in it.
  setAccessibleName(spoken);
  setAccessibleDescription(spoken);
  lineEdit()->setAccessibleName(spoken);
  lineEdit()->setPlaceholderText("Type any part of a name");
  connect(lineEdit(), &QLineEdit::returnPressed, this,
          [this]() noexcept { takeFirstMatch(lineEdit()->text()); });
  connect(lineEdit(), &QLineEdit::editingFinished, this, [this]() noexcept { showSelected(); });
}

/// Enter is the list's alone: the window's default button does not get it.
void SearchBox::keyPressEvent(QKeyEvent* event) noexcept {
  QComboBox::keyPressEvent(event);
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) event->accept();
}

/// A name that is typed in full goes before those that contain it.
void SearchBox::takeFirstMatch(const QString& typed) {
  completer()->popup()->hide();
  if (typed.isEmpty() || typed == itemText(currentIndex())) return;
  int index = findText(typed, Qt::MatchFixedString);
  if (index < 0) index = findText(typed, Qt::MatchContains);
  if (index >= 0) emit activated(index);
}

/// The names that fit would stay on the screen when their window goes.
void SearchBox::hideEvent(QHideEvent* event) noexcept {
  completer()->popup()->hide();
  QComboBox::hideEvent(event);
}

void SearchBox::showSelected() {
  if (!completer()->popup()->isVisible()) setEditText(itemText(currentIndex()));
}

}  // namespace vorlent
