#include "window/QtOperator.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTimer>
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
  const auto found = windows_.find(&form);
  form.Visible(found != windows_.end());
  if (!form.Visible()) return;
  QWidget* window = found->second;
  if (modality == Modality::NonModal) {
    window->show();
    return;
  }
  dynamic_cast<QDialog&>(*window).exec();
  window->hide();
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
