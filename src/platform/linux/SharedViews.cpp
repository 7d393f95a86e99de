#include "platform/linux/SharedViews.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <mutex>

namespace vorlent {
namespace {

struct Slot {
  std::atomic<std::uintptr_t> begin{0};  ///< 0 when free
  std::atomic<std::uintptr_t> end{0};
  std::atomic<bool> damaged{false};
};
std::array<Slot, 256> slots;
std::mutex slotsMutex;  // not for the handler

struct sigaction formerAction;

std::uintptr_t number(const void* address) { return reinterpret_cast<std::uintptr_t>(address); }

Slot* slotAt(std::uintptr_t address) {
  const auto found = std::find_if(slots.begin(), slots.end(), [address](const Slot& slot) {
    return slot.begin != 0 && address >= slot.begin && address < slot.end;
  });
  return found == slots.end() ? nullptr : &*found;
}

void mendOrGoOn(int signal, siginfo_t* info, void*) {
  const int savedErrno = errno;
  const bool isFault = info->si_code > 0;
  if (!isFault || !mendView(info->si_addr)) {
    // What the signal did before. A fault comes again by itself when its instruction is run again.
    sigaction(signal, &formerAction, nullptr);
    if (!isFault) raise(signal);
  }
  errno = savedErrno;
}

void installHandler() {
  struct sigaction action {};
  action.sa_sigaction = mendOrGoOn;
  action.sa_flags = SA_SIGINFO | SA_ONSTACK;
  sigaction(SIGBUS, &action, &formerAction);
}

}  // namespace

bool watchView(std::span<std::byte> view) {
  static std::once_flag installed;
  std::call_once(installed, installHandler);
  const std::lock_guard lock(slotsMutex);
  const auto free =
      std::find_if(slots.begin(), slots.end(), [](const Slot& slot) { return slot.begin == 0; });
  if (free == slots.end()) return false;
  free->damaged = false;
  free->end = number(view.data()) + view.size();
  free->begin = number(view.data());
  return true;
}

void forgetView(const std::byte* start) {
  const std::lock_guard lock(slotsMutex);
  if (Slot* slot = slotAt(number(start))) slot->begin = 0;
}

bool isViewDamaged(const std::byte* start) {
  const Slot* slot = slotAt(number(start));
  return slot != nullptr && slot->damaged;
}

// mmap() is not in the list of signal-safety(7), but on Linux it is a bare system call.
bool mendView(const void* address) {
  Slot* slot = slotAt(number(address));
  if (slot == nullptr) return false;
  const auto pageSize = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  const auto* const page = static_cast<const std::byte*>(address) - number(address) % pageSize;
  void* const memory = mmap(const_cast<std::byte*>(page), pageSize, PROT_READ | PROT_WRITE,
                            MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0);
  if (memory == MAP_FAILED) return false;
  slot->damaged = true;
  return true;
}

}  // namespace vorlent
