#include "platform/qt/StandardInput.h"

#include <algorithm>
#include <utility>

namespace vorlent {
StandardInput::StandardInput(LineHandler onLine, std::function<void()> onEnd, int descriptor)
    : onLine_(std::move(onLine)),
      onEnd_(std::move(onEnd)),
      bytes_(readInput(descriptor, [this](std::string_view bytes) { take(bytes); })) {}

void StandardInput::take(std::string_view bytes) {
  if (bytes.empty()) return finish();
  pending_ += bytes;
  deliverLines();
}

void StandardInput::deliverLines() {
  for (auto end = pending_.find('\n'); end != std::string::npos; end = pending_.find('\n')) {
    std::string line = pending_.substr(0, end);
    pending_.erase(0, end + 1);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    line.resize(std::min(line.size(), LongestLine_bytes));
    onLine_(line);
  }
  pending_.resize(std::min(pending_.size(), LongestLine_bytes));
}

void StandardInput::finish() {
  if (!pending_.empty()) {
    pending_ += '\n';
    deliverLines();
  }
  onEnd_();
}

}  // namespace vorlent
