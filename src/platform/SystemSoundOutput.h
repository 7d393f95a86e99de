#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/SoundOutput.h"

namespace vorlent {

/// The sound library of the system, whose folder has the definitions.
class SystemSoundOutput : public SoundOutput {
 public:
  /// What the system's definitions keep.
  struct Library;

  SystemSoundOutput();
  explicit SystemSoundOutput(std::unique_ptr<Library> library);
  ~SystemSoundOutput() override;
  SystemSoundOutput(const SystemSoundOutput&) = delete;
  SystemSoundOutput& operator=(const SystemSoundOutput&) = delete;

  std::vector<std::string> devices() override;
  bool open(std::size_t index, std::intptr_t window) override;
  bool openAgain() override;
  bool connected() override;
  void close() override;
  std::unique_ptr<SoundVoice> voice(std::shared_ptr<const Wave> wave) override;

 private:
  std::unique_ptr<Library> library_;
};

}  // namespace vorlent
