#include "platform/qt/Signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <utility>

namespace vorlent {
namespace {

constexpr std::array CaughtSignals{SIGINT, SIGTERM, SIGHUP};

// What a signal handler can reach: the two ends of the pipe, and what to put back at the end.
std::array<int, 2> selfPipe{-1, -1};
std::array<struct sigaction, CaughtSignals.size()> formerActions;

void writeToPipe(int signal) {
  const int savedErrno = errno;
  const auto number = static_cast<unsigned char>(signal);
  // A pipe that is full already holds signals enough.
  [[maybe_unused]] const auto written = write(selfPipe[1], &number, 1);
  errno = savedErrno;
}

/// Whether the program was started to go on without its terminal, by nohup(1) say.
bool outlivesItsTerminal(int signal, const struct sigaction& former) {
  return signal == SIGHUP && former.sa_handler == SIG_IGN;
}

int openPipe() {
  if (pipe2(selfPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
    throw std::system_error(errno, std::generic_category(), "pipe2");
  return selfPipe[0];
}

}  // namespace

class Signals::Catch {
 public:
  explicit Catch(std::function<void(int)> onTermination)
      : onTermination_(std::move(onTermination)), notifier_(openPipe(), QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_,
                     [this]() noexcept { deliver(); });
    struct sigaction action {};
    action.sa_handler = writeToPipe;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < CaughtSignals.size(); ++i) {
      sigaction(CaughtSignals[i], nullptr, &formerActions[i]);
      if (!outlivesItsTerminal(CaughtSignals[i], formerActions[i]))
        sigaction(CaughtSignals[i], &action, nullptr);
    }
  }
  ~Catch() {
    for (std::size_t i = 0; i < CaughtSignals.size(); ++i)
      sigaction(CaughtSignals[i], &formerActions[i], nullptr);
    notifier_.setEnabled(false);
    close(selfPipe[0]);
    close(selfPipe[1]);
  }
  Catch(const Catch&) = delete;
  Catch& operator=(const Catch&) = delete;

 private:
  void deliver() {
    unsigned char number = 0;
    if (read(selfPipe[0], &number, 1) == 1) onTermination_(number);
  }

  std::function<void(int)> onTermination_;
  QSocketNotifier notifier_;
};

Signals::Signals(std::function<void(int)> onTermination)
    : catch_(std::make_unique<Catch>(std::move(onTermination))) {}

Signals::~Signals() = default;

}  // namespace vorlent
