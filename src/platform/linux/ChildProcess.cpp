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

#include "platform/linux/Descriptor.h"

namespace vorlent {
namespace {

/// The child writes to a file in memory, which never fills up as a pipe does while nobody reads.
std::optional<pid_t> start(std::vector<std::string>& arguments, int output) {
  std::vector<char*> pointers;
  pointers.reserve(arguments.size() + 1);
  for (auto& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const int error =
      posix_spawnp(&child, pointers.front(), &actions, nullptr, pointers.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  return error == 0 ? std::optional(child) : std::nullopt;
}

void awaitOrKill(pid_t child, int deadline_ms) {
  const Descriptor end(static_cast<int>(syscall(SYS_pidfd_open, child, 0)));
  pollfd waiting{end.number(), POLLIN, 0};
  int ready = -1;
  do {
    ready = poll(&waiting, 1, deadline_ms);
  } while (ready < 0 && errno == EINTR);
  if (ready <= 0) kill(child, SIGKILL);
  while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
  }
}

std::string contentOf(int file) {
  std::string content;
  std::array<char, 4096> buffer;
  lseek(file, 0, SEEK_SET);
  for (ssize_t count; (count = read(file, buffer.data(), buffer.size())) > 0;)
    content.append(buffer.data(), static_cast<std::size_t>(count));
  return content;
}

}  // namespace

std::optional<std::string> runChild(std::vector<std::string> arguments, int deadline_ms) {
  const Descriptor output(memfd_create("output", MFD_CLOEXEC));
  const auto child = start(arguments, output.number());
  if (!child) return std::nullopt;
  awaitOrKill(*child, deadline_ms);
  return contentOf(output.number());
}

}  // namespace vorlent
