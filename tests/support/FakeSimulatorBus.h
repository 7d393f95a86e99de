#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "platform/SimulatorBus.h"

namespace vorlent {

/// A simulator in the same process: 64 KB of offsets behind a block of memory, with hooks for
/// everything that can go wrong. Serves like FSX through FSUIPC 4.950 unless told otherwise.
class FakeSimulatorBus : public SimulatorBus {
 public:
  struct Write {
    std::uint32_t offset;
    std::vector<std::uint8_t> bytes;
    bool operator==(const Write&) const = default;
  };
  struct Message {
    WindowHandle window;
    MessageId message;
    AtomId atom;
    int timeout_ms;
    bool operator==(const Message&) const = default;
  };

  FakeSimulatorBus();

  // SimulatorBus
  WindowHandle findWindow(const std::string& windowClass) override;
  std::string obstacle() override { return whyNoWindow; }
  MessageId registerMessage(const std::string& text) override;
  AtomId addAtom(const std::string& text) override;
  void deleteAtom(AtomId atom) override;
  BlockResult createBlock(const std::string& name, std::size_t size_bytes) override;
  std::byte* mapBlock(BlockHandle block) override;
  bool isIntact(const std::byte*) override { return !viewDamaged; }
  void unmapBlock(std::byte* view) override;
  void dropBlock(BlockHandle block) override;
  SendResult sendMessage(WindowHandle window, MessageId message, AtomId atom,
                         int timeout_ms) override;
  void showWindow(WindowHandle window, bool maximised) override;
  void bringToFront(WindowHandle window) override;
  std::uint32_t processId() override { return ownProcessId; }

  /// Little-endian into the offsets.
  template <class T>
  void put(std::uint32_t offset, T value) {
    store(&offsets[offset], value);
  }
  template <class T>
  T get(std::uint32_t offset) const {
    return load<T>(&offsets[offset]);
  }
  void putText(std::uint32_t offset, const std::string& text) {
    std::copy(text.begin(), text.end(), offsets.begin() + offset);
  }

  std::vector<std::uint8_t> offsets = std::vector<std::uint8_t>(0x10000 + 0x8000);
  std::map<std::string, WindowHandle> windows;
  std::vector<Write> writes;
  /// The writes at this offset alone.
  std::vector<Write> writesTo(std::uint32_t offset) const;
  int requests = 0;
  Message lastMessage{};
  /// What the client asks of the system to open and close its link: "find UIPCMAIN",
  /// "register FSASMLIB:IPC", "atom NAME", "create NAME 32768", "map", "unmap", "drop",
  /// "delete atom".
  std::vector<std::string> calls;
  /// Called with the block as the client left it, before it is served.
  std::function<void(std::byte* block)> onArrival;
  /// Answers in place of the simulator when set; the block has been served before.
  std::function<SendResult(SendResult served, std::byte* block)> onRequest;
  /// Requests that are not served and time out, or fail with this error.
  int unansweredRequests = 0;
  std::uint32_t errorOfUnanswered = 0;
  /// Takes every request for done without looking at it, and counts it: no transport at all.
  bool acknowledgesOnly = false;

  std::uint32_t ownProcessId = 0x1A2B;
  bool messageFails = false;
  bool atomFails = false;
  bool blockFails = false;
  bool blockNameTaken = false;
  bool viewFails = false;
  bool viewDamaged = false;
  std::string whyNoWindow;
  std::set<AtomId> atoms;
  std::string atomText;
  std::string blockName;
  int mappedViews = 0;
  int openBlocks = 0;
  /// "show 1", "show maximised 1", "front 1".
  std::vector<std::string> windowCalls;
  std::function<void()> onWindowCall;

 private:
  void serve();

  std::vector<std::byte> block_;
};

}  // namespace vorlent
