#include "window/QtOperator.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTimer>
#include <QWindow>
#include <utility>

#include "base/controls.h"

namespace vorlent {
namespace {

QMessageBox::Icon qtIcon(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Critical:
      return QMessageBox::Critical;
    case BoxIcon::Exclamation:
      return QMessageBox::Warning;
    case BoxIcon::Plain:
      break;
  }
  return QMessageBox::NoIcon;
}

/// A box that waits to be acknowledged has the arrow, also in the middle of long work.
class ArrowPointer {
 public:
  ArrowPointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
  ~ArrowPointer() { QApplication::restoreOverrideCursor(); }
  ArrowPointer(const ArrowPointer&) = delete;
  ArrowPointer& operator=(const ArrowPointer&) = delete;
};

}  // namespace

void QtOperator::add(Form& form, QWidget& window) {
  windows_[&form] = &window;
  form.Visible.addView([&form, target = QPointer<QWidget>(&window)] {
    if (target && !form.Visible()) target->hide();
  });
}

void QtOperator::messageBox(const std::string& text, BoxIcon icon, const std::string& title) {
  if (leaving_) return;
  const ArrowPointer arrow;
  QMessageBox box(qtIcon(icon), QString::fromStdString(title), QString::fromStdString(text),
                  QMessageBox::Ok, QApplication::activeWindow());
  box.setTextFormat(Qt::PlainText);
  openBoxes_.push_back(&box);
  box.exec();
  openBoxes_.pop_back();
  if (openBoxes_.empty() && workWhenLeft_)
    QTimer::singleShot(0, qApp, std::exchange(workWhenLeft_, nullptr));
}

void QtOperator::pointer(Pointer shape) {
  const bool wanted = shape == Pointer::Hourglass;
  if (wanted == hourglass_) return;
  hourglass_ = wanted;
  if (hourglass_)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

void QtOperator::showForm(Form& form, Modality modality) {
  QWidget* window = windowOf(form);
  form.Visible(window != nullptr);
  if (window == nullptr) return;
  if (modality == Modality::NonModal)
    window->show();
  else
    runModally(window);
}

/// A form of former times may have stood where this one stands.
QWidget* QtOperator::windowOf(Form& form) {
  const auto found = windows_.find(&form);
  if (found != windows_.end() && found->second) return found->second;
  std::shared_ptr<QDialog> made = maker_ ? maker_(form) : nullptr;
  if (!made) return nullptr;
  add(form, *made);
  form.View = made;
  return made.get();
}

/// Stands over the window from which it was opened; may go with its form meanwhile.
void QtOperator::runModally(const QPointer<QWidget>& window) {
  if (QWidget* below = QApplication::activeWindow(); below && below != window) {
    window->winId();
    window->windowHandle()->setTransientParent(below->window()->windowHandle());
  }
  dynamic_cast<QDialog&>(*window).exec();
  if (window) window->hide();
}

void QtOperator::hideForm(Form& form) { form.Visible(false); }

void QtOperator::leave(std::function<void()> work) {
  leaving_ = true;
  if (openBoxes_.empty()) {
    work();
    return;
  }
  workWhenLeft_ = std::move(work);
  for (QMessageBox* box : openBoxes_) box->accept();
}

}  // namespace vorlent
