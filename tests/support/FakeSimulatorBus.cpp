#include "support/FakeSimulatorBus.h"

#include <algorithm>
#include <iterator>

namespace vorlent {

FakeSimulatorBus::FakeSimulatorBus() {
  windows = {{"UIPCMAIN", 11}, {"FS98MAIN", 12}};
  put(0x3304, std::uint32_t{0x49500000});
  put(0x3308, std::uint32_t{0xFADE0008});
  put(0x3BFA, std::uint16_t{2047});
}

WindowHandle FakeSimulatorBus::findWindow(const std::string& windowClass) {
  calls.push_back("find " + windowClass);
  const auto found = windows.find(windowClass);
  return found == windows.end() ? 0 : found->second;
}

MessageId FakeSimulatorBus::registerMessage(const std::string& text) {
  calls.push_back("register " + text);
  return messageFails || text != "FSASMLIB:IPC" ? 0 : 0xC123;
}

AtomId FakeSimulatorBus::addAtom(const std::string& text) {
  calls.push_back("atom " + text);
  if (atomFails) return 0;
  atomText = text;
  const AtomId atom = 0xC200 + static_cast<AtomId>(atoms.size());
  atoms.insert(atom);
  return atom;
}

void FakeSimulatorBus::deleteAtom(AtomId atom) {
  calls.push_back("delete atom");
  atoms.erase(atom);
}

BlockResult FakeSimulatorBus::createBlock(const std::string& name, std::size_t size_bytes) {
  calls.push_back("create " + name + " " + std::to_string(size_bytes));
  if (blockFails) return {};
  blockName = name;
  block_.assign(size_bytes, std::byte{0});
  ++openBlocks;
  return {77, blockNameTaken};
}

std::byte* FakeSimulatorBus::mapBlock(BlockHandle) {
  calls.push_back("map");
  if (viewFails) return nullptr;
  ++mappedViews;
  return block_.data();
}

void FakeSimulatorBus::unmapBlock(std::byte*) {
  calls.push_back("unmap");
  --mappedViews;
}

/// The memory goes too, so that an address sanitizer sees who still uses it.
void FakeSimulatorBus::dropBlock(BlockHandle) {
  calls.push_back("drop");
  --openBlocks;
  block_ = {};
}

SendResult FakeSimulatorBus::sendMessage(WindowHandle window, MessageId message, AtomId atom,
                                         int timeout_ms) {
  ++requests;
  if (acknowledgesOnly) return {true, 1, 0};
  lastMessage = {window, message, atom, timeout_ms};
  if (onArrival) onArrival(block_.data());
  if (unansweredRequests > 0) {
    --unansweredRequests;
    return {false, 0, errorOfUnanswered};
  }
  serve();
  const SendResult served{true, 1, 0};
  return onRequest ? onRequest(served, block_.data()) : served;
}

void FakeSimulatorBus::serve() {
  for (std::byte* record = block_.data();;) {
    const auto id = load<std::uint32_t>(record);
    const auto offset = load<std::uint32_t>(record + 4);
    const auto size = load<std::uint32_t>(record + 8);
    if (id == 0) return;
    if (id == 1) {
      std::memcpy(record + 16, &offsets.at(offset), size);
      record += 16 + size;
      continue;
    }
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(record + 12);
    if (offset != 0x330A) {
      writes.push_back({offset, {bytes, bytes + size}});
      std::copy(bytes, bytes + size, &offsets.at(offset));
    }
    record += 12 + size;
  }
}

void FakeSimulatorBus::showWindow(WindowHandle window, bool maximised) {
  windowCalls.push_back((maximised ? "show maximised " : "show ") + std::to_string(window));
  if (onWindowCall) onWindowCall();
}

void FakeSimulatorBus::bringToFront(WindowHandle window) {
  windowCalls.push_back("front " + std::to_string(window));
  if (onWindowCall) onWindowCall();
}

std::vector<FakeSimulatorBus::Write> FakeSimulatorBus::writesTo(std::uint32_t offset) const {
  std::vector<Write> found;
  std::copy_if(writes.begin(), writes.end(), std::back_inserter(found),
               [offset](const Write& write) { return write.offset == offset; });
  return found;
}

}  // namespace vorlent
