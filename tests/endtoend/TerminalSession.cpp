#include "endtoend/TerminalSession.h"

#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <stdexcept>

namespace vorlent {
namespace {

using Clock = std::chrono::steady_clock;

}  // namespace

TerminalSession::TerminalSession(const std::string& program, const std::string& busFolder) {
  id_ = forkpty(&terminal_, nullptr, nullptr, nullptr);
  if (id_ < 0) throw std::runtime_error("no terminal");
  if (id_ == 0) {
    setenv("VORLENT_BUS", busFolder.c_str(), 1);
    setenv("LC_ALL", "C", 1);
    execl(program.c_str(), program.c_str(), nullptr);
    _exit(127);
  }
}

TerminalSession::~TerminalSession() {
  closeTerminal();
  if (waitStatus_) return;
  kill(id_, SIGKILL);
  waitpid(id_, nullptr, 0);
}

void TerminalSession::type(const std::string& keys) const {
  if (write(terminal_, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size()))
    throw std::runtime_error("the terminal takes no keys");
}

bool TerminalSession::waitFor(const std::string& text, std::chrono::milliseconds limit) {
  const auto until = Clock::now() + limit;
  std::array<char, 4096> buffer;
  while (output_.find(text) == std::string::npos) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(until - Clock::now());
    pollfd waiting{terminal_, POLLIN, 0};
    if (left.count() <= 0 || poll(&waiting, 1, static_cast<int>(left.count())) <= 0) return false;
    const ssize_t count = read(terminal_, buffer.data(), buffer.size());
    if (count <= 0) return false;
    output_.append(buffer.data(), static_cast<std::size_t>(count));
  }
  output_.erase(0, output_.find(text) + text.size());
  return true;
}

void TerminalSession::closeTerminal() {
  if (terminal_ >= 0) close(terminal_);
  terminal_ = -1;
}

std::optional<int> TerminalSession::waitForEnd(std::chrono::milliseconds limit) {
  const auto until = Clock::now() + limit;
  while (!waitStatus_) {
    int status = 0;
    if (waitpid(id_, &status, WNOHANG) == id_) {
      waitStatus_ = status;
    } else if (Clock::now() > until) {
      return std::nullopt;
    } else {
      poll(nullptr, 0, 5);
    }
  }
  if (!WIFEXITED(*waitStatus_)) return std::nullopt;
  return WEXITSTATUS(*waitStatus_);
}

}  // namespace vorlent
