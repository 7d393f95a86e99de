#include "platform/linux/UnixSimulatorBus.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "base/RuntimeError.h"
#include "base/text.h"
#include "platform/linux/BlockNames.h"
#include "platform/linux/BusFolder.h"
#include "platform/linux/SharedViews.h"

namespace vorlent {
namespace {

/// Empty when there is no folder that can be trusted.
std::string socketPath(const std::string& windowClass) {
  try {
    return busFolder() + "/" + windowClass;
  } catch (const RuntimeError&) {
    return {};
  }
}

std::string sharedMemoryName(const std::string& name) { return "/" + replaced(name, ":", "."); }

bool holdsOwnProcessId(const std::string& name) {
  const std::string id = hexText(static_cast<std::uint32_t>(getpid()));
  return (":" + name + ":").find(":" + id + ":") != std::string::npos;
}

Descriptor createExclusively(const std::string& sharedName) {
  constexpr mode_t ForUserAlone = 0600;
  Descriptor memory(shm_open(sharedName.c_str(), O_CREAT | O_EXCL | O_RDWR, ForUserAlone));
  // A umask may have taken too much away.
  if (memory) fchmod(memory.number(), ForUserAlone);
  return memory;
}

}  // namespace

UnixSimulatorBus::~UnixSimulatorBus() {
  while (!views_.empty()) unmapBlock(views_.begin()->first);
  while (!blocks_.empty()) dropBlock(blocks_.begin()->first);
}

WindowHandle UnixSimulatorBus::findWindow(const std::string& windowClass) {
  const auto known = std::find_if(windows_.begin(), windows_.end(), [&](const auto& window) {
    return window.second.windowClass == windowClass;
  });
  if (known != windows_.end()) {
    if (known->second.connection->isAlive()) return known->first;
    windows_.erase(known);
  }
  auto connection = std::make_unique<SimulatorConnection>(socketPath(windowClass));
  if (!connection->open()) return 0;
  windows_[++lastWindow_] = {windowClass, std::move(connection)};
  return lastWindow_;
}

MessageId UnixSimulatorBus::registerMessage(const std::string& text) {
  for (const auto& [id, known] : messages_)
    if (known == text) return id;
  return addText(messages_, text);
}

AtomId UnixSimulatorBus::addAtom(const std::string& text) { return addText(atoms_, text); }

void UnixSimulatorBus::deleteAtom(AtomId atom) { atoms_.erase(atom); }

BlockResult UnixSimulatorBus::createBlock(const std::string& name, std::size_t size_bytes) {
  foreignBlock_.clear();
  if (name.find_first_of(std::string_view("/\0", 2)) != std::string::npos) return {};
  const std::string sharedName = sharedMemoryName(name);
  Descriptor memory = createExclusively(sharedName);
  if (!memory && errno == EEXIST) {
    if (isOwnBlockName(sharedName) || !holdsOwnProcessId(name)) return {0, true};
    shm_unlink(sharedName.c_str());
    memory = createExclusively(sharedName);
    if (!memory && errno == EEXIST) foreignBlock_ = sharedName;
  }
  if (!memory) return {0, errno == EEXIST};
  // Allocated and not just sized: with no memory left this fails, and not an access later.
  if (!rememberBlockName(sharedName) ||
      posix_fallocate(memory.number(), 0, static_cast<off_t>(size_bytes)) != 0) {
    unlinkName(sharedName);
    return {};
  }
  blocks_[++lastBlock_] = {sharedName, std::move(memory), size_bytes};
  return {lastBlock_, false};
}

std::byte* UnixSimulatorBus::mapBlock(BlockHandle block) {
  const auto found = blocks_.find(block);
  if (found == blocks_.end()) return nullptr;
  const auto& [name, memory, size_bytes] = found->second;
  void* view = mmap(nullptr, size_bytes, PROT_READ | PROT_WRITE, MAP_SHARED, memory.number(), 0);
  if (view == MAP_FAILED) return nullptr;
  auto* const start = static_cast<std::byte*>(view);
  if (!watchView({start, size_bytes})) {
    munmap(view, size_bytes);
    return nullptr;
  }
  views_[start] = size_bytes;
  return start;
}

void UnixSimulatorBus::unmapBlock(std::byte* view) {
  const auto found = views_.find(view);
  if (found == views_.end()) return;
  forgetView(view);
  munmap(view, found->second);
  views_.erase(found);
}

bool UnixSimulatorBus::isIntact(const std::byte* view) { return !isViewDamaged(view); }

void UnixSimulatorBus::dropBlock(BlockHandle block) {
  const auto found = blocks_.find(block);
  if (found == blocks_.end()) return;
  unlinkName(found->second.name);
  blocks_.erase(found);
}

SendResult UnixSimulatorBus::sendMessage(WindowHandle window, MessageId message, AtomId atom,
                                         int timeout_ms) {
  const auto to = windows_.find(window);
  const auto messageText = messages_.find(message);
  const auto atomText = atoms_.find(atom);
  if (to == windows_.end()) return {false, 0, EBADF};
  if (messageText == messages_.end() || atomText == atoms_.end()) return {false, 0, EINVAL};
  return to->second.connection->request(messageText->second, atomText->second, timeout_ms);
}

std::string UnixSimulatorBus::obstacle() {
  if (!foreignBlock_.empty())
    return "The shared memory " + foreignBlock_ + " is left of another user's program: start again";
  try {
    busFolder();
    return {};
  } catch (const RuntimeError& error) {
    return error.description();
  }
}

void UnixSimulatorBus::showWindow(WindowHandle, bool) {}

void UnixSimulatorBus::bringToFront(WindowHandle) {}

std::uint32_t UnixSimulatorBus::processId() { return static_cast<std::uint32_t>(getpid()); }

std::uint32_t UnixSimulatorBus::addText(std::map<std::uint32_t, std::string>& texts,
                                        const std::string& text) {
  if (text.empty() || text.find('\n') != std::string::npos) return 0;
  const std::uint32_t id = texts.empty() ? 1 : texts.rbegin()->first + 1;
  texts[id] = text;
  return id;
}

void UnixSimulatorBus::unlinkName(const std::string& sharedName) {
  shm_unlink(sharedName.c_str());
  forgetBlockName(sharedName);
}

}  // namespace vorlent
