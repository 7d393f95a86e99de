#pragma once

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/linux/Descriptor.h"

namespace vorlent {

/// Runs a program of the PATH with its output on `output`.
inline pid_t spawned(std::vector<std::string> command, int output) {
  std::vector<char*> arguments;
  for (auto& argument : command) arguments.push_back(argument.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const int error =
      posix_spawnp(&child, arguments.front(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error("cannot run " + command.front());
  return child;
}

/// An X server without a screen, on a display of its own choice.
class XServer {
 public:
  /// `screen`: width, height and depth.
  explicit XServer(const std::string& screen = "320x240x24") {
    std::array<int, 2> pipe{};
    if (pipe2(pipe.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    const Descriptor from(pipe[0]);
    {
      const Descriptor to(pipe[1]);
      server_ = spawned({"Xvfb", "-displayfd", "1", "-screen", "0", screen, "-nolisten", "tcp"},
                        to.number());
    }
    display_ = ":" + firstLineFrom(from.number());
  }
  ~XServer() { stop(); }
  XServer(const XServer&) = delete;
  XServer& operator=(const XServer&) = delete;

  const std::string& display() const { return display_; }
  /// Ends it as a logout does.
  void stop() {
    if (server_ == 0) return;
    kill(server_, SIGTERM);
    waitpid(server_, nullptr, 0);
    server_ = 0;
  }
  /// Gives the keyboard these layouts, such as "ru,us".
  void layout(const std::string& names) const {
    const Descriptor nothing(open("/dev/null", O_WRONLY | O_CLOEXEC));
    int status = -1;
    waitpid(spawned({"setxkbmap", "-display", display_, "-layout", names}, nothing.number()),
            &status, 0);
    if (status != 0) throw std::runtime_error("no keyboard layout " + names);
  }

 private:
  /// Up to the end of the line, or of the output when the server could not start.
  static std::string firstLineFrom(int descriptor) {
    std::string line;
    for (char c = 0; read(descriptor, &c, 1) == 1 && c != '\n';) line += c;
    return line;
  }

  pid_t server_ = 0;
  std::string display_;
};

}  // namespace vorlent
