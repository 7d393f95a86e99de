#include "tap/TappedDesk.h"

#include <utility>

#include "base/controls.h"
#include "recording/portTexts.h"

namespace vorlent {

using namespace recorded;

void TappedOperator::messageBox(const std::string& text, BoxIcon icon, const std::string& title) {
  tap_.tell(BoxShown{static_cast<std::uint8_t>(icon), title, text});
  tap_.answer(Call::MessageBox, 1);
  tap_.flush();
  inner_.messageBox(text, icon, title);
  tap_.answer(Call::MessageBox, 0);
}

void TappedOperator::showForm(Form& form, Modality modality) {
  tap_.answer(Call::ShowForm, 1, form.name());
  tap_.flush();
  inner_.showForm(form, modality);
  tap_.answer(Call::ShowForm, 0, form.name());
}

std::string TappedRegional::decimalSeparator() {
  std::string mark = inner_.decimalSeparator();
  tap_.answer(Call::DecimalSeparator, 0, mark);
  return mark;
}

bool TappedInstance::claim(const std::string& programFolder) {
  const bool claimed = inner_.claim(programFolder);
  tap_.answer(Call::ClaimInstance, claimed ? 1 : 0);
  return claimed;
}

std::vector<ControllerInfo> TappedControllers::devices() {
  std::vector<ControllerInfo> devices = inner_.devices();
  tap_.answer(Call::Controllers, 0, textOfControllers(devices));
  return devices;
}

ControllerResult TappedControllers::told(Call call, ControllerResult result) {
  if (result != ControllerResult::Ok) tap_.answer(call, static_cast<int>(result));
  return result;
}

ControllerResult TappedControllers::Acquire(std::size_t device) {
  return told(Call::AcquireStick, inner_.Acquire(device));
}

ControllerResult TappedControllers::Poll(std::size_t device) {
  return told(Call::PollStick, inner_.Poll(device));
}

ControllerResult TappedControllers::GetDeviceState(std::size_t device, ControllerState& state) {
  const ControllerResult result = inner_.GetDeviceState(device, state);
  const bool ok = result == ControllerResult::Ok;
  tap_.answer(Call::ReadStick, static_cast<int>(result), ok ? textOfStick(state) : "");
  return result;
}

void TappedKeyboard::press(const KeyCombination& combination) {
  tap_.asked(Call::PressKey, [&] { inner_.press(combination); });
  tap_.answer(Call::PressKey, 1);
}

std::vector<std::string> TappedSoundDevice::devices() {
  std::vector<std::string> devices = inner_.devices();
  tap_.answer(Call::SoundDevices, 0, textOfLines(devices));
  return devices;
}

bool TappedSoundDevice::open(int position, std::intptr_t window) {
  const bool opened = inner_.open(position, window);
  tap_.answer(Call::OpenSound, opened ? 1 : 0);
  return opened;
}

std::unique_ptr<SoundBuffer> TappedSoundDevice::createBuffer(const std::string& path) {
  auto buffer = tap_.asked(Call::CreateSound, [&] { return inner_.createBuffer(path); });
  tap_.answer(Call::CreateSound, 1);
  return buffer;
}

std::optional<std::string> TappedSoundDevice::news() {
  std::optional<std::string> news = inner_.news();
  if (news) tap_.answer(Call::SoundNews, 1, *news);
  return news;
}

/// It may be done at once, inside the call.
void TappedDocuments::open(const std::string& path, Done done) {
  inner_.open(path, [&tap = tap_, done = std::move(done)](int result) {
    tap.answer(Call::DocumentDone, result);
    done(result);
  });
}

std::vector<std::string> TappedFileChooser::drives() {
  std::vector<std::string> drives = inner_.drives();
  tap_.answer(Call::Drives, 0, textOfLines(drives));
  return drives;
}

std::optional<std::string> TappedFileChooser::told(std::optional<std::string> chosen) {
  tap_.answer(Call::ChooseFile, chosen ? 1 : 0, chosen.value_or(""));
  return chosen;
}

std::optional<std::string> TappedFileChooser::folder(const std::string& start) {
  tap_.flush();
  return told(inner_.folder(start));
}

std::optional<std::string> TappedFileChooser::zipToRead(const std::string& start) {
  tap_.flush();
  return told(inner_.zipToRead(start));
}

std::optional<std::string> TappedFileChooser::zipToMake(const std::string& suggested) {
  tap_.flush();
  return told(inner_.zipToMake(suggested));
}

}  // namespace vorlent
