#include "platform/ProgramStarter.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "platform/linux/Descriptor.h"

namespace vorlent {
namespace {

class Child : public StartedProgram {
 public:
  Child(pid_t id, Descriptor output) : id_(id), output_(std::move(output)) {}
  ~Child() override {
    if (status_) return;
    kill(id_, SIGKILL);
    while (waitpid(id_, nullptr, 0) < 0 && errno == EINTR) {
    }
  }

  std::string output() override {
    std::string text;
    std::array<char, 4096> buffer;
    for (ssize_t count; (count = read(output_.number(), buffer.data(), buffer.size())) > 0;)
      text.append(buffer.data(), static_cast<std::size_t>(count));
    return text;
  }

  std::optional<int> ended() override {
    int status = 0;
    if (!status_ && waitpid(id_, &status, WNOHANG) == id_)
      status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return status_;
  }

  void end() override {
    if (!ended()) kill(id_, SIGTERM);
  }

 private:
  pid_t id_;
  Descriptor output_;
  std::optional<int> status_;
};

/// Standard output and standard error go to `output`; all else is this process's. Signals that this
/// process catches or holds back are the program's own again.
pid_t spawn(const std::string& path, int output) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  for (const int as : {STDOUT_FILENO, STDERR_FILENO})
    posix_spawn_file_actions_adddup2(&actions, output, as);
  posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
  std::string name = path;
  std::array<char*, 2> arguments = {name.data(), nullptr};
  pid_t child = 0;
  const bool failed =
      posix_spawn(&child, path.c_str(), &actions, nullptr, arguments.data(), environ) != 0;
  posix_spawn_file_actions_destroy(&actions);
  return failed ? 0 : child;
}

class Starter : public ProgramStarter {
 public:
  std::unique_ptr<StartedProgram> start(const std::string& path) override {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) return nullptr;
    Descriptor from(ends[0]);
    const Descriptor to(ends[1]);
    fcntl(from.number(), F_SETFL, O_NONBLOCK);
    const pid_t child = spawn(path, to.number());
    if (child == 0) return nullptr;
    return std::make_unique<Child>(child, std::move(from));
  }
  std::string fileName(const std::string& program) const override { return program; }
};

}  // namespace

std::unique_ptr<ProgramStarter> openProgramStarter() { return std::make_unique<Starter>(); }

}  // namespace vorlent
