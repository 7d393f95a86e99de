#pragma once

#include <string>
#include <vector>

#include "support/TestServer.h"

namespace vorlent {

/// What an operator sees of a server, in order: status texts ("1| Init IPC"), forms that come up
/// ("show FrmTip"), and the pauses between ("sleep 500").
class Transcript {
 public:
  explicit Transcript(TestServer& host) {
    host.form.sbStatusBar.addView([this, &bar = host.form.sbStatusBar](int panel) {
      lines.push_back(std::to_string(panel) + "| " + bar.panelText(panel));
    });
    host.op.onShow = [this](const Form& form) { lines.push_back("show " + form.name()); };
    host.loop.onSleep = [this](int duration_ms) {
      lines.push_back("sleep " + std::to_string(duration_ms));
      if (onSleep) onSleep(duration_ms);
    };
  }

  std::vector<std::string> lines;
  std::function<void(int)> onSleep;
};

inline RecordingOperator::Box plainBox(const std::string& text) {
  return {text, BoxIcon::Plain, "Vorlent"};
}
inline RecordingOperator::Box criticalBox(const std::string& text) {
  return {text, BoxIcon::Critical, "Vorlent"};
}

}  // namespace vorlent
