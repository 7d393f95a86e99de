#include "platform/linux/HelperProcess.h"

#include <sys/socket.h>

#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

namespace vorlent {
namespace {

using Outcome = MessageSocket::Outcome;

std::pair<Descriptor, Descriptor> connectedSockets() {
  std::array<int, 2> ends{-1, -1};
  socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data());
  return {Descriptor(ends[0]), Descriptor(ends[1])};
}

}  // namespace

std::string helperProgram(const std::string& name) {
  std::error_code failed;
  const auto folder = std::filesystem::read_symlink("/proc/self/exe", failed).parent_path();
  const auto beside = folder / name;
  if (std::filesystem::exists(beside, failed)) return beside.string();
  return (folder.parent_path() / "libexec/vorlent" / name).string();
}

HelperAnswer HelperProcess::ask(const Message& question, std::chrono::milliseconds deadline,
                                std::size_t mostOfAnAnswer_bytes) {
  const auto until = MessageSocket::Clock::now() + deadline;
  HelperAnswer answer;
  // One that died since the last question is found out by the sending; so there are two tries.
  Outcome outcome = Outcome::Closed;
  if (running_) outcome = running_->socket.send(question, until);
  if (outcome == Outcome::Closed) {
    if (!start()) return {{}, false, true};
    outcome = running_->socket.send(question, until);
  }
  Message message;
  if (outcome == Outcome::Done)
    outcome = running_->socket.receive(message, mostOfAnAnswer_bytes, until);
  if (outcome == Outcome::Done)
    answer.message = std::move(message);
  else
    running_.reset();
  answer.late = outcome == Outcome::Late;
  return answer;
}

/// The greeting fits into the socket's buffer, so it is not waited for.
bool HelperProcess::start() {
  running_.reset();
  auto [own, helpers] = connectedSockets();
  auto child = ChildProcess::start({program_}, helpers.number(), -1);
  if (!child) return false;
  running_ = Running{*std::move(child), MessageSocket(std::move(own))};
  if (!greeting_.empty()) running_->socket.send(greeting_, MessageSocket::Clock::now());
  return true;
}

AskHelper askOnce(const std::string& program) {
  return [program](const Message& question, std::chrono::milliseconds deadline,
                   std::size_t mostOfAnAnswer_bytes) {
    return HelperProcess(program).ask(question, deadline, mostOfAnAnswer_bytes);
  };
}

}  // namespace vorlent
