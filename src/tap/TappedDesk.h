#pragma once

#include "platform/Controllers.h"
#include "platform/Documents.h"
#include "platform/FileChooser.h"
#include "platform/Keyboard.h"
#include "platform/Operator.h"
#include "platform/ProgramInstance.h"
#include "platform/Regional.h"
#include "platform/SoundDevice.h"
#include "tap/Tap.h"

/// The ports to who sits in front of the machine, and to what stands around him.
namespace vorlent {

class TappedOperator : public Operator {
 public:
  TappedOperator(Operator& inner, Tap& tap) : inner_(inner), tap_(tap) {}

  void messageBox(const std::string& text, BoxIcon icon, const std::string& title) override;
  void pointer(Pointer shape) override { inner_.pointer(shape); }
  void showForm(Form& form, Modality modality) override;
  void hideForm(Form& form) override { inner_.hideForm(form); }

 private:
  Operator& inner_;
  Tap& tap_;
};

class TappedRegional : public Regional {
 public:
  TappedRegional(Regional& inner, Tap& tap) : inner_(inner), tap_(tap) {}
  std::string decimalSeparator() override;

 private:
  Regional& inner_;
  Tap& tap_;
};

class TappedInstance : public ProgramInstance {
 public:
  TappedInstance(ProgramInstance& inner, Tap& tap) : inner_(inner), tap_(tap) {}
  bool claim(const std::string& programFolder) override;

 private:
  ProgramInstance& inner_;
  Tap& tap_;
};

class TappedControllers : public Controllers {
 public:
  TappedControllers(Controllers& inner, Tap& tap) : inner_(inner), tap_(tap) {}

  std::vector<ControllerInfo> devices() override;
  ControllerResult Acquire(std::size_t device) override;
  ControllerResult Poll(std::size_t device) override;
  ControllerResult GetDeviceState(std::size_t device, ControllerState& state) override;

 private:
  ControllerResult told(recorded::Call call, ControllerResult result);

  Controllers& inner_;
  Tap& tap_;
};

class TappedKeyboard : public Keyboard {
 public:
  TappedKeyboard(Keyboard& inner, Tap& tap) : inner_(inner), tap_(tap) {}
  void press(const KeyCombination& combination) override;

 private:
  Keyboard& inner_;
  Tap& tap_;
};

class TappedSoundDevice : public SoundDevice {
 public:
  TappedSoundDevice(SoundDevice& inner, Tap& tap) : inner_(inner), tap_(tap) {}

  std::vector<std::string> devices() override;
  bool open(int position, std::intptr_t window) override;
  std::unique_ptr<SoundBuffer> createBuffer(const std::string& path) override;
  std::optional<std::string> news() override;

 private:
  SoundDevice& inner_;
  Tap& tap_;
};

class TappedDocuments : public Documents {
 public:
  TappedDocuments(Documents& inner, Tap& tap) : inner_(inner), tap_(tap) {}
  void open(const std::string& path, Done done) override;

 private:
  Documents& inner_;
  Tap& tap_;
};

class TappedFileChooser : public FileChooser {
 public:
  TappedFileChooser(FileChooser& inner, Tap& tap) : inner_(inner), tap_(tap) {}

  std::vector<std::string> drives() override;
  std::optional<std::string> folder(const std::string& start) override;
  std::optional<std::string> zipToRead(const std::string& start) override;
  std::optional<std::string> zipToMake(const std::string& suggested) override;

 private:
  std::optional<std::string> told(std::optional<std::string> chosen);

  FileChooser& inner_;
  Tap& tap_;
};

}  // namespace vorlent
