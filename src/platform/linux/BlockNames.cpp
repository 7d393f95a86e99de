#include "platform/linux/BlockNames.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include "platform/linux/SharedViews.h"

namespace vorlent {
namespace {

// Where Linux has POSIX shared memory, shm_overview(7). A signal handler may call unlink() but not
// shm_unlink(), signal-safety(7).
constexpr const char* SharedMemoryFolder = "/dev/shm";

struct Slot {
  std::atomic<pid_t> owner{0};  ///< 0 when free; a forked child does not own its parent's names
  std::array<char, 96> path{};
};
std::array<Slot, 16> slots;

constexpr std::array EndingSignals{SIGABRT, SIGALRM, SIGBUS,  SIGFPE,  SIGHUP,
                                   SIGILL,  SIGPIPE, SIGQUIT, SIGSEGV, SIGSYS,
                                   SIGTRAP, SIGUSR1, SIGUSR2, SIGXCPU, SIGXFSZ};
std::array<struct sigaction, NSIG> formerActions;

// A stack that has run over leaves none for the handler.
std::array<char, 16384> handlerStack;

std::string pathOf(const std::string& name) { return SharedMemoryFolder + name; }

Slot* slotOf(const std::string& name) {
  const std::string path = pathOf(name);
  const pid_t self = getpid();
  const auto found = std::find_if(slots.begin(), slots.end(), [&](const Slot& slot) {
    return slot.owner == self && path == slot.path.data();
  });
  return found == slots.end() ? nullptr : &*found;
}

void unlinkAll() {
  const pid_t self = getpid();
  for (auto& slot : slots)
    if (slot.owner == self) unlink(slot.path.data());
}

void unlinkAndGoOn(int signal, siginfo_t* info, void*) {
  if (signal == SIGBUS && info->si_code > 0 && mendView(info->si_addr)) return;
  unlinkAll();
  sigaction(signal, &formerActions[static_cast<std::size_t>(signal)], nullptr);
  // A fault comes again by itself when the instruction that made it is run again.
  const bool isFault = info->si_code > 0 && (signal == SIGSEGV || signal == SIGBUS ||
                                             signal == SIGFPE || signal == SIGILL);
  if (!isFault) raise(signal);
}

void installFor(int signal) {
  auto& former = formerActions[static_cast<std::size_t>(signal)];
  sigaction(signal, nullptr, &former);
  if (former.sa_handler == SIG_IGN) return;
  struct sigaction action {};
  action.sa_sigaction = unlinkAndGoOn;
  action.sa_flags = SA_SIGINFO | SA_ONSTACK;
  sigaction(signal, &action, nullptr);
}

}  // namespace

bool rememberBlockName(const std::string& name) {
  const std::string path = pathOf(name);
  const auto free =
      std::find_if(slots.begin(), slots.end(), [](const Slot& slot) { return slot.owner == 0; });
  if (free == slots.end() || path.size() >= free->path.size()) return false;
  std::memcpy(free->path.data(), path.c_str(), path.size() + 1);
  free->owner = getpid();
  return true;
}

void forgetBlockName(const std::string& name) {
  if (Slot* slot = slotOf(name)) slot->owner = 0;
}

bool isOwnBlockName(const std::string& name) { return slotOf(name) != nullptr; }

void unlinkBlocksAtAbruptEnd() {
  stack_t stack{};
  stack.ss_sp = handlerStack.data();
  stack.ss_size = handlerStack.size();
  sigaltstack(&stack, nullptr);
  for (const int signal : EndingSignals) installFor(signal);
  std::atexit(unlinkAll);
}

}  // namespace vorlent
