#pragma once

#include <QPointer>

#include "base/controls.h"
#include "window/Guard.h"

class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QStatusBar;
class QTabWidget;
class QTableWidget;
class QToolButton;
class QWidget;

namespace vorlent {

class Lamp;

/// Runs `show` with the value now and whenever it changes, as long as the object is there.
template <class T, class Object, class Show>
void follow(Property<T>& property, Object& object, Show show) {
  const auto refresh = [&property, target = QPointer<Object>(&object), show] {
    if (target) show(*target, property());
  };
  refresh();
  property.addView(refresh);
}

/// Binds the controls of a form's model to widgets, both ways: the widget shows what the model
/// holds, and what the operator does to the widget goes into the model, never the other's echo.
/// After each event the widget shows the model's value again, also where the model refused it.
///
/// The letter of `altKey` is marked in a caption: with Alt it works the control. A caption without
/// it has no such key. The model's caption stays as it is.
///
/// A widget gets the control's name as its object name. The model lives as long as the widget; a
/// widget may go before.
class Binder {
 public:
  static constexpr char NoKey = '\0';

  explicit Binder(Guard guard) : guard_(std::move(guard)) {}

  /// The box is left when the operator moves on to another control, not when a menu opens or
  /// another program comes to the front. A locked one is to read only. While the box complains it
  /// has a red frame, and its tool tip says why.
  void bind(TextBox& box, QLineEdit& edit) const;
  /// Shows the text and takes none.
  void bind(TextBox& box, QLabel& label) const;
  /// Shows the text, red while it is an alarm.
  void bind(Label& text, QLabel& label) const;
  /// To read only: takes neither focus nor selection.
  void bind(Table& table, QTableWidget& widget) const;
  void bind(CheckBox& box, QCheckBox& widget, char altKey = NoKey) const;
  /// The wheel turns it while it has the focus, and passes over it otherwise.
  void bind(ComboBox& box, QComboBox& widget) const;
  /// Buttons of one parent clear each other; the form may clear them anew.
  void bind(OptionButton& option, QRadioButton& widget, char altKey = NoKey) const;
  void bind(TabStrip& pages, QTabWidget& widget) const;
  void bind(Bar& bar, QProgressBar& widget) const;
  void bind(Shape& shape, Lamp& widget) const;
  /// Names, places and changes; what is painted is the widget's affair.
  void bind(Picture& picture, QWidget& widget) const;
  void bind(Button& button, QPushButton& widget, char altKey = NoKey) const;
  void bind(Button& button, QToolButton& widget) const;
  /// Where the action is checkable, its tick is the entry's Checked.
  void bind(MenuItem& entry, QAction& action) const;
  /// Adds a panel for each of the bar's; the first takes most of the width.
  void bind(StatusBar& bar, QStatusBar& widget) const;

 private:
  Guard guard_;
};

}  // namespace vorlent
