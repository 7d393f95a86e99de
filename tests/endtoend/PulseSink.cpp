#include "endtoend/PulseSink.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <stdexcept>

#include "support/eventually.h"

namespace vorlent {

PulseSink::PulseSink(int channels) : channels_(channels) { startAgain(); }

void PulseSink::startAgain() {
  const std::string rate = std::to_string(SinkRecording::Rate_Hz);
  server_ = std::make_unique<Process>(
      "/usr/bin/pulseaudio",
      std::vector<std::string>{
          "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
          "--load=module-null-sink sink_name=cockpit format=s16le channels=" +
              std::to_string(channels_) + " rate=" + rate,
          "--load=module-native-protocol-unix auth-anonymous=1 socket=" + folder_ / "native"},
      std::vector<std::string>{});
  if (!eventually([this] { return answers(); }))
    throw std::runtime_error("no PulseAudio: " + server_->output());
}

void PulseSink::stop() {
  server_->signal(SIGTERM);
  if (!server_->waitForEnd()) throw std::runtime_error("PulseAudio stays");
  std::filesystem::remove(folder_ / "native");
}

bool PulseSink::answers() const {
  if (!std::filesystem::exists(folder_ / "native")) return false;
  Process question("/usr/bin/pactl", {"info"}, {});
  return question.waitForEnd() == 0;
}

SinkRecording::SinkRecording(const PulseSink& sink) {
  std::array<int, 2> out{};
  if (pipe2(out.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  const std::string server = "--server=" + sink.address();
  const std::string rate = "--rate=" + std::to_string(Rate_Hz);
  recorder_ = fork();
  if (recorder_ == 0) {
    dup2(out[1], 1);
    execl("/usr/bin/parec", "parec", server.c_str(), "--device=cockpit.monitor", rate.c_str(),
          "--format=s16le", "--channels=2", "--latency-msec=10", nullptr);
    _exit(127);
  }
  close(out[1]);
  from_ = out[0];
  reader_ = std::thread([this] { read(); });
  waitUntil(std::chrono::steady_clock::now());
}

SinkRecording::~SinkRecording() {
  ending_ = true;
  kill(recorder_, SIGTERM);
  reader_.join();
  waitpid(recorder_, nullptr, 0);
  close(from_);
}

void SinkRecording::read() {
  std::array<std::int16_t, 4096> block;
  while (!ending_) {
    pollfd waiting{from_, POLLIN, 0};
    if (poll(&waiting, 1, 100) <= 0) continue;
    const ssize_t count = ::read(from_, block.data(), sizeof block);
    if (count <= 0) return;
    const auto now = std::chrono::steady_clock::now();
    const std::lock_guard lock(mutex_);
    heard_.add(std::span(block).first(static_cast<std::size_t>(count) / 2), now);
  }
}

void SinkRecording::waitUntil(Moment moment) {
  const bool came = eventually([&] {
    const std::lock_guard lock(mutex_);
    return heard_.reach(moment);
  });
  if (!came) throw std::runtime_error("nothing is recorded");
}

std::optional<SinkRecording::Moment> SinkRecording::firstAbove(double amplitude, Moment from) {
  const std::lock_guard lock(mutex_);
  return heard_.firstAbove(amplitude, from);
}

double SinkRecording::level_dB(int channel, Moment from, Moment until) {
  const std::lock_guard lock(mutex_);
  return heard_.level_dB(channel, from, until);
}

}  // namespace vorlent
