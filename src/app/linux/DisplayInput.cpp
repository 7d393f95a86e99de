#include "app/DisplayInput.h"

#include <QSocketNotifier>
#include <utility>

#include "platform/linux/libedit/LineEditor.h"
#include "platform/qt/StandardInput.h"

namespace vorlent {
namespace {

class PlainInput : public DisplayInput {
 public:
  explicit PlainInput(StandardInput::LineHandler onLine) : lines_(std::move(onLine), [] {}) {}

 private:
  StandardInput lines_;
};

class EditedInput : public DisplayInput {
 public:
  EditedInput(const std::string& prompt, LineEditor::LineHandler onLine)
      : editor_(prompt, std::move(onLine)), keys_(0, QSocketNotifier::Read) {
    QObject::connect(&keys_, &QSocketNotifier::activated, &keys_, [this]() noexcept {
      if (!editor_.readKeys()) keys_.setEnabled(false);
    });
  }

 private:
  LineEditor editor_;
  QSocketNotifier keys_;
};

}  // namespace

bool inputShowsPrompt(bool edited) { return edited; }

std::unique_ptr<DisplayInput> readDisplayInput(bool edited, const std::string& prompt,
                                               std::function<void(const std::string&)> onLine) {
  if (edited) return std::make_unique<EditedInput>(prompt, std::move(onLine));
  return std::make_unique<PlainInput>(std::move(onLine));
}

}  // namespace vorlent
