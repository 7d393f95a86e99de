#include "endtoend/Process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <set>
#include <stdexcept>

namespace vorlent {
namespace {

using Clock = std::chrono::steady_clock;

std::vector<char*> pointers(const std::vector<std::string>& texts) {
  std::vector<char*> result;
  for (const auto& text : texts) result.push_back(const_cast<char*>(text.c_str()));
  result.push_back(nullptr);
  return result;
}

std::string nameOf(const std::string& variable) { return variable.substr(0, variable.find('=')); }

/// Each name once: a shell takes the last of two.
std::vector<std::string> withInherited(std::vector<std::string> variables) {
  std::set<std::string> named;
  for (const std::string& variable : variables) named.insert(nameOf(variable));
  for (char** variable = environ; *variable != nullptr; ++variable)
    if (!named.contains(nameOf(*variable))) variables.emplace_back(*variable);
  return variables;
}

}  // namespace

Process::Process(const std::string& program, const std::vector<std::string>& arguments,
                 const std::vector<std::string>& environment) {
  std::array<int, 2> in{};
  std::array<int, 2> out{};
  if (pipe2(in.data(), O_CLOEXEC) != 0 || pipe2(out.data(), O_CLOEXEC) != 0)
    throw std::runtime_error("no pipe");
  std::vector<std::string> command = {program};
  command.insert(command.end(), arguments.begin(), arguments.end());
  const std::vector<std::string> variables = withInherited(environment);
  const auto argumentPointers = pointers(command);
  const auto variablePointers = pointers(variables);
  id_ = fork();
  if (id_ < 0) throw std::runtime_error("no process");
  if (id_ == 0) {
    dup2(in[0], 0);
    dup2(out[1], 1);
    dup2(out[1], 2);
    execve(program.c_str(), argumentPointers.data(), variablePointers.data());
    _exit(127);
  }
  close(in[0]);
  close(out[1]);
  input_ = in[1];
  from_ = out[0];
}

Process::~Process() {
  // A program that is left running has its orderly end first, so that nothing of it stays behind.
  if (!waitStatus_) kill(id_, SIGTERM);
  if (!waitStatus_ && !waitForEnd(10s) && !waitStatus_) {
    kill(id_, SIGKILL);
    waitpid(id_, nullptr, 0);
  }
  close(input_);
  close(from_);
}

void Process::type(const std::string& line) const {
  const std::string text = line + "\n";
  if (write(input_, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
    throw std::runtime_error("the program does not read");
}

void Process::signal(int number) const { kill(id_, number); }

bool Process::readMore(Clock::time_point until) {
  const auto left =
      std::chrono::duration_cast<std::chrono::milliseconds>(until - Clock::now()).count();
  if (left <= 0) return false;
  pollfd waiting{from_, POLLIN, 0};
  if (poll(&waiting, 1, static_cast<int>(left)) <= 0) return false;
  std::array<char, 4096> buffer;
  const ssize_t count = read(from_, buffer.data(), buffer.size());
  if (count <= 0) return false;
  output_.append(buffer.data(), static_cast<std::size_t>(count));
  return true;
}

std::optional<std::string> Process::waitForLine(const std::string& part,
                                                std::chrono::milliseconds limit) {
  const auto until = Clock::now() + limit;
  for (;;) {
    for (auto end = output_.find('\n', searched_); end != std::string::npos;
         end = output_.find('\n', searched_)) {
      const std::string line = output_.substr(searched_, end - searched_);
      searched_ = end + 1;
      if (line.find(part) != std::string::npos) return line;
    }
    if (!readMore(until)) return std::nullopt;
  }
}

std::optional<int> Process::waitForEnd(std::chrono::milliseconds limit) {
  const auto until = Clock::now() + limit;
  while (readMore(until)) {
  }
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
