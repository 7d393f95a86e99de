#include "support/RecordingSoundDevice.h"

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

class RecordingBuffer : public SoundBuffer {
 public:
  RecordingBuffer(std::string name, std::vector<std::string>& calls)
      : name_(std::move(name)), calls_(calls) {}
  ~RecordingBuffer() override { note("release"); }
  RecordingBuffer(const RecordingBuffer&) = delete;
  RecordingBuffer& operator=(const RecordingBuffer&) = delete;

  void volume(int hundredths_dB) override {
    checkVolume(hundredths_dB);
    note("volume " + std::to_string(hundredths_dB));
  }
  void pan(int hundredths_dB) override {
    checkPan(hundredths_dB);
    note("pan " + std::to_string(hundredths_dB));
  }
  void playOnce() override { note("play"); }
  void playLooping() override { note("loop"); }
  void stop() override { note("stop"); }
  void rewind() override { note("rewind"); }

 private:
  void note(const std::string& what) { calls_.push_back(name_ + " " + what); }

  std::string name_;
  std::vector<std::string>& calls_;
};

}  // namespace

bool RecordingSoundDevice::open(int position, std::intptr_t forWindow) {
  calls.push_back("open " + std::to_string(position));
  window = forWindow;
  return opens;
}

std::unique_ptr<SoundBuffer> RecordingSoundDevice::createBuffer(const std::string& path) {
  const std::string name = path.substr(path.find_last_of("\\/") + 1);
  calls.push_back("load " + name);
  paths.push_back(path);
  if (missing.contains(name))
    throw RuntimeError(RuntimeError::FileNotFound, "Sound " + path + ": File not found");
  return std::make_unique<RecordingBuffer>(name, calls);
}

}  // namespace vorlent
