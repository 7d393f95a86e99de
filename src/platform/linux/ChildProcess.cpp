#include "platform/linux/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "platform/linux/Descriptor.h"

namespace vorlent {
namespace {

class FileActions {
 public:
  FileActions() { posix_spawn_file_actions_init(&actions_); }
  ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;

  void give(int descriptor, int as) {
    if (descriptor < 0)
      posix_spawn_file_actions_addopen(&actions_, as, "/dev/null", O_RDWR, 0);
    else
      posix_spawn_file_actions_adddup2(&actions_, descriptor, as);
  }
  void closeFrom(int first) { posix_spawn_file_actions_addclosefrom_np(&actions_, first); }
  const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

/// Signals as they are for a program of its own, whatever this process does with them.
class Attributes {
 public:
  Attributes() {
    posix_spawnattr_init(&attributes_);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes_, &signals);
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&attributes_, &signals);
    posix_spawnattr_setflags(
        &attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
  }
  ~Attributes() { posix_spawnattr_destroy(&attributes_); }
  Attributes(const Attributes&) = delete;
  Attributes& operator=(const Attributes&) = delete;

  const posix_spawnattr_t* get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_{};
};

std::string contentOf(int file) {
  std::string content;
  std::array<char, 4096> buffer;
  lseek(file, 0, SEEK_SET);
  for (ssize_t count; (count = read(file, buffer.data(), buffer.size())) > 0;)
    content.append(buffer.data(), static_cast<std::size_t>(count));
  return content;
}

}  // namespace

std::optional<ChildProcess> ChildProcess::start(std::vector<std::string> arguments, int input,
                                                int output) {
  std::vector<char*> pointers;
  pointers.reserve(arguments.size() + 1);
  for (auto& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  FileActions actions;
  actions.give(input, STDIN_FILENO);
  actions.give(output, STDOUT_FILENO);
  actions.give(-1, STDERR_FILENO);
  actions.closeFrom(STDERR_FILENO + 1);
  pid_t child = 0;
  if (posix_spawnp(&child, pointers.front(), actions.get(), Attributes().get(), pointers.data(),
                   environ) != 0)
    return std::nullopt;
  return ChildProcess(child);
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept : id_(std::exchange(other.id_, 0)) {}

ChildProcess& ChildProcess::operator=(ChildProcess&& other) noexcept {
  std::swap(id_, other.id_);
  return *this;
}

ChildProcess::~ChildProcess() {
  if (id_ == 0) return;
  kill(id_, SIGKILL);
  while (waitpid(id_, nullptr, 0) < 0 && errno == EINTR) {
  }
}

bool ChildProcess::awaitEnd(int deadline_ms) const {
  const Descriptor end(static_cast<int>(syscall(SYS_pidfd_open, id_, 0)));
  pollfd waiting{end.number(), POLLIN, 0};
  int ready = -1;
  do {
    ready = poll(&waiting, 1, deadline_ms);
  } while (ready < 0 && errno == EINTR);
  return ready > 0;
}

/// The child writes to a file in memory, which never fills up as a pipe does while nobody reads.
std::optional<std::string> runChild(std::vector<std::string> arguments, int deadline_ms) {
  const Descriptor output(memfd_create("output", MFD_CLOEXEC));
  {
    const auto child = ChildProcess::start(std::move(arguments), -1, output.number());
    if (!child) return std::nullopt;
    child->awaitEnd(deadline_ms);
  }
  return contentOf(output.number());
}

}  // namespace vorlent
