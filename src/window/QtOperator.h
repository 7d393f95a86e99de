#pragma once

#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "platform/Operator.h"

class QDialog;
class QMessageBox;
class QWidget;

namespace vorlent {

/// The operator in front of a screen. Lives as long as the forms whose windows it knows.
class QtOperator : public Operator {
 public:
  /// `window` is how the form is seen; one that is shown modally is a QDialog. It goes out of sight
  /// with the form's Visible, whoever clears it, and may go before the form does.
  void add(Form& form, QWidget& window);

  /// Makes the windows of forms that come and go, when they are first shown; null for a form that
  /// it knows none for. A window made like this goes with its form.
  using Maker = std::function<std::unique_ptr<QDialog>(Form&)>;
  void makeWindows(Maker maker) { maker_ = std::move(maker); }

  void messageBox(const std::string& text, BoxIcon icon, const std::string& title) override;
  void pointer(Pointer shape) override;
  /// A modal form also returns when the event loop ends, at once when it has ended already. A form
  /// that no window was added for stays out of sight.
  void showForm(Form& form, Modality modality) override;
  void hideForm(Form& form) override;

  /// The process is asked from outside to end. `work`, which lets no exception out, runs when no
  /// message box is open, so that it does not pull the ground from under a routine that waits for
  /// one: an open box, and each that would come, counts as acknowledged.
  void leave(std::function<void()> work);

 private:
  QWidget* windowOf(Form& form);
  static void runModally(const QPointer<QWidget>& window);

  std::map<const Form*, QPointer<QWidget>> windows_;
  Maker maker_;
  std::vector<QMessageBox*> openBoxes_;
  std::function<void()> workWhenLeft_;
  bool leaving_ = false;
  bool hourglass_ = false;
};

}  // namespace vorlent
