#include "endtoend/TerminalProcess.h"

#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>
#include <utmp.h>

#include <array>
#include <stdexcept>

namespace vorlent {

using Clock = std::chrono::steady_clock;

TerminalProcess::TerminalProcess(const std::string& program,
                                 const std::vector<std::string>& arguments, int columns) {
  const winsize size{24, static_cast<unsigned short>(columns), 0, 0};
  if (openpty(&terminal_, &lineSide_, nullptr, nullptr, &size) != 0)
    throw std::runtime_error("no terminal");
  std::vector<std::string> words = {program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  id_ = fork();
  if (id_ < 0) throw std::runtime_error("no process");
  if (id_ == 0) {
    close(terminal_);
    login_tty(lineSide_);
    setenv("TERM", "xterm", 1);
    execv(program.c_str(), pointers.data());
    _exit(127);
  }
}

TerminalProcess::~TerminalProcess() {
  if (!ended_) {
    kill(id_, SIGKILL);
    waitpid(id_, nullptr, 0);
  }
  close(lineSide_);
  close(terminal_);
}

void TerminalProcess::type(const std::string& keys) const {
  if (write(terminal_, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size()))
    throw std::runtime_error("the terminal does not take the keys");
}

bool TerminalProcess::readMore(int limit_ms) {
  pollfd waiting{terminal_, POLLIN, 0};
  if (poll(&waiting, 1, limit_ms) <= 0) return false;
  std::array<char, 4096> buffer;
  const ssize_t count = read(terminal_, buffer.data(), buffer.size());
  if (count > 0) output_.append(buffer.data(), static_cast<std::size_t>(count));
  return count > 0;
}

bool TerminalProcess::waitFor(const std::string& text, std::chrono::milliseconds limit) {
  const auto until = Clock::now() + limit;
  while (Clock::now() < until) {
    if (const auto at = output_.find(text, searched_); at != std::string::npos) {
      searched_ = at + text.size();
      return true;
    }
    readMore(20);
  }
  return false;
}

std::optional<int> TerminalProcess::waitForEnd() {
  const auto until = Clock::now() + std::chrono::seconds(20);
  int status = 0;
  while (waitpid(id_, &status, WNOHANG) != id_) {
    if (Clock::now() > until) return std::nullopt;
    readMore(20);
  }
  ended_ = true;
  while (readMore(0)) {
  }
  if (!WIFEXITED(status)) return std::nullopt;
  return WEXITSTATUS(status);
}

bool TerminalProcess::givesLines() const {
  termios settings{};
  tcgetattr(lineSide_, &settings);
  return (settings.c_lflag & ICANON) != 0 && (settings.c_lflag & ECHO) != 0;
}

}  // namespace vorlent
