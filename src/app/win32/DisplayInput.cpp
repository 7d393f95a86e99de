#include "app/DisplayInput.h"

#include <utility>

#include "platform/qt/StandardInput.h"

namespace vorlent {
namespace {

/// A console edits its line and keeps a history by itself.
class ConsoleInput : public DisplayInput {
 public:
  explicit ConsoleInput(StandardInput::LineHandler onLine) : lines_(std::move(onLine), [] {}) {}

 private:
  StandardInput lines_;
};

}  // namespace

bool inputShowsPrompt(bool) { return false; }

std::unique_ptr<DisplayInput> readDisplayInput(bool, const std::string&,
                                               std::function<void(const std::string&)> onLine) {
  return std::make_unique<ConsoleInput>(std::move(onLine));
}

}  // namespace vorlent
