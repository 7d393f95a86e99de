#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/controls.h"
#include "platform/Operator.h"

namespace vorlent {

/// Acknowledges everything and remembers it. A message box that no test took fails the test.
class RecordingOperator : public Operator {
 public:
  struct Box {
    std::string text;
    BoxIcon icon;
    std::string title;
    bool operator==(const Box&) const = default;
  };

  ~RecordingOperator() override;

  void messageBox(const std::string& text, BoxIcon icon, const std::string& title) override {
    boxes_.push_back({text, icon, title});
  }
  void pointer(Pointer shape) override { pointers.push_back(shape); }
  void showForm(Form& form, Modality modality) override {
    shown.push_back({form.name(), form.Caption(), modality == Modality::Modal});
    if (onShow) onShow(form);
  }
  void hideForm(Form& form) override { hidden.push_back(form.name()); }

  std::vector<Box> takeBoxes() { return std::exchange(boxes_, {}); }

  struct Shown {
    std::string name;
    std::string caption;
    bool modal;
    bool operator==(const Shown&) const = default;
  };
  std::vector<Shown> shown;
  std::vector<std::string> hidden;
  std::vector<Pointer> pointers;
  /// What the operator does when a form comes up.
  std::function<void(Form&)> onShow;

 private:
  std::vector<Box> boxes_;
};

std::ostream& operator<<(std::ostream& out, const RecordingOperator::Box& box);

}  // namespace vorlent
