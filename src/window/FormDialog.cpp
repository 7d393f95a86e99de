#include "window/FormDialog.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

#include "window/FittingScroll.h"
#include "window/virtualKeys.h"

namespace vorlent {
namespace {

/// Goes with the widget that it watches.
class KeyWatch : public QObject {
 public:
  KeyWatch(Control& control, QObject& watched, Guard guard)
      : QObject(&watched), control_(control), guard_(std::move(guard)) {
    watched.installEventFilter(this);
  }

  /// A shortcut of the window does not take the key away.
  bool eventFilter(QObject*, QEvent* event) noexcept override {
    const bool shortcut = event->type() == QEvent::ShortcutOverride;
    if (!shortcut && event->type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab) return false;
    if (shortcut) {
      event->accept();
      return true;
    }
    const int code = virtualKeyOf(key);
    if (code != 0 && !key.isAutoRepeat())
      guard_(Deed::Key, control_, std::to_string(code) + " " + std::to_string(heldOf(key)),
             [&] { control_.keyDown(code, heldOf(key)); });
    return true;
  }

 private:
  Control& control_;
  Guard guard_;
};

}  // namespace

FormDialog::FormDialog(Form& form, Guard guard)
    : form_(form), guard_(std::move(guard)), binder_(guard_) {
  setObjectName(QString::fromStdString(form.name()));
  follow(form.Caption, *this, [](FormDialog& window, const std::string& caption) {
    window.setWindowTitle(QString::fromStdString(caption));
  });
}

void FormDialog::reject() noexcept { guard_.close(form_); }

void FormDialog::setTabOrders() {
  QWidget* previous = nullptr;
  for (const Control* control : form_.controls()) {
    auto* widget = findChild<QWidget*>(QString::fromStdString(control->name()));
    if (!widget || widget->focusPolicy() == Qt::NoFocus) continue;
    if (previous) setTabOrder(previous, widget);
    previous = widget;
  }
}

void FormDialog::takeKeys(TextBox& box, QWidget& widget) { new KeyWatch(box, widget, guard_); }

void FormDialog::fill(QWidget* content) { fill(content, nullptr); }

void FormDialog::fill(QWidget* content, Button& ok, Button& cancel) {
  fill(content, closingRow(ok, cancel));
}

void FormDialog::fill(QWidget* content, QLayout* below) {
  auto* scroll = new FittingScroll(this);
  scroll->setWidget(content);
  auto* all = new QVBoxLayout(this);
  all->addWidget(scroll);
  if (below != nullptr) all->addLayout(below);
  setTabOrders();
}

/// At the right end, as dialogs have it. Enter presses the one that has the focus, else OK.
QHBoxLayout* FormDialog::closingRow(Button& ok, Button& cancel) {
  auto* row = new QHBoxLayout;
  row->addStretch();
  for (Button* button : {&ok, &cancel}) {
    auto* push = new QPushButton(this);
    binder_.bind(*button, *push, button == &ok ? 'o' : 'c');
    push->setDefault(button == &ok);
    row->addWidget(push);
  }
  return row;
}

}  // namespace vorlent
