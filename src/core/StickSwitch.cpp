#include "core/StickSwitch.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "base/text.h"
#include "core/Server.h"
#include "core/frmMainClient.h"
#include "core/modMain.h"
#include "platform/Operator.h"
#include "platform/fileChecks.h"
#include "sticks/clsJoyst.h"
#include "sticks/frmCMore.h"
#include "sticks/frmCStick.h"
#include "sticks/stickFile.h"

namespace vorlent {
namespace {

constexpr double MostSticks = 8;

}  // namespace

/// Sticks are made for all boards, also for those beyond the number in use.
void StickSwitch::InitJoystick() {
  std::int16_t count = 0;
  if (!server_.sticks.joyst->DInput_Init(count)) {
    form_.chkStick.Value(0);
    return;
  }
  const std::string requested = trimmed(form_.txtSticks.Text());
  if (numeric(requested).value_or(0) > count) {
    server_.ports.op.messageBox("Joystick " + requested + " not detected in Vorlent",
                                BoxIcon::Plain, "Vorlent");
    form_.txtSticks.Text(std::to_string(count));
    form_.chkStick.Value(1);
  }
  for (std::int16_t stick = 0; stick < count; ++stick) {
    form_.SetStatusText(1, "InitJoystick " + std::to_string(stick));
    makeStick(stick);
  }
}

/// A file that cannot be read leaves the stick's defaults.
void StickSwitch::makeStick(std::int16_t stick) {
  const std::string path = stickFilePath(server_.store, stick);
  CheckFileExists(server_.ports.op, path, BoxIcon::Critical);
  auto& form = server_.sticks.CStick.at(static_cast<std::size_t>(stick));
  auto& more = server_.sticks.CMore.at(static_cast<std::size_t>(stick));
  form = std::make_unique<frmCStick>(server_.sticks, stick);
  more = std::make_unique<frmCMore>(server_.sticks, stick);
  std::string text;
  try {
    text = readFile(path);
  } catch (const RuntimeError& error) {
    form_.SetStatusText(1, path + ": " + error.description());
  }
  readStickFile(text, *form, *more);
  form->Form_Init();
  for (const std::string& fault : stickFileFaults(text, *form))
    form_.SetStatusText(1, std::string(path).append(", ").append(fault));
}

void StickSwitch::switchSticks() {
  if (form_.chkStick.Value() == 1) InitJoystick();
  const bool on = form_.chkStick.Value() == 1;
  if (on) server_.sticks.joyst->StartAllSticks();
  form_.cmdStick.Enabled(on);
  if (!on) server_.sticks.joyst->KillAllSticks();
}

/// Where no board is found the click clears the box, and setting it tries once more.
void StickSwitch::SetChkStickValue() {
  const int value = server_.store.JoysticksOnValue;
  if (form_.chkStick.Value() == value) switchSticks();
  form_.chkStick.Value(value);
}

/// The chosen stick may be one that no board was found for.
void StickSwitch::showStick() {
  const int chosen = form_.cboStick.ListIndex();
  if (chosen < 0 || chosen >= static_cast<int>(server_.sticks.CStick.size())) return;
  frmCStick* stick = server_.sticks.CStick[static_cast<std::size_t>(chosen)].get();
  if (stick == nullptr) return;
  stick->Visible(true);
  server_.failureDomain.showModal(*stick);
}

/// From 1 to 8: nothing, 0 and what is no number become 1, more becomes 8.
void StickSwitch::limitCount() {
  const std::string digits = FilterNumber(form_.txtSticks.Text(), DotMode::NoDot, false);
  const double typed = digits.empty() ? 1 : numeric(digits).value_or(MostSticks);
  const int count = static_cast<int>(std::clamp(typed, 1.0, MostSticks));
  form_.txtSticks.Text.setQuietly(std::to_string(count));
  fillStickList(count);
}

void StickSwitch::fillStickList(int count) {
  std::vector<ComboBox::Item> sticks;
  for (int stick = 1; stick <= count; ++stick) sticks.push_back({std::to_string(stick)});
  form_.cboStick.clear();
  form_.cboStick.Items(std::move(sticks));
  if (count > 0) form_.cboStick.ListIndex(0);
}

}  // namespace vorlent
