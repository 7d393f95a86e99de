#pragma once

#include "platform/SimulatorBus.h"

namespace vorlent {

/// The simulator interface as Windows has it: top-level windows, global atoms, and memory of the
/// paging file under a name. Error numbers are GetLastError's. A handle is the system's own.
class WindowsSimulatorBus : public SimulatorBus {
 public:
  WindowHandle findWindow(const std::string& windowClass) override;
  /// Windows keeps messages of a program from one with higher rights.
  std::string obstacle() override;
  MessageId registerMessage(const std::string& text) override;
  /// An atom outlives the process: who adds it deletes it.
  AtomId addAtom(const std::string& text) override;
  void deleteAtom(AtomId atom) override;

  /// A block whose name is taken comes with a handle, too, to be dropped like any other. A name
  /// goes when nobody has the block open any more, so a process that has ended leaves none behind.
  BlockResult createBlock(const std::string& name, std::size_t size_bytes) override;
  std::byte* mapBlock(BlockHandle block) override;
  void unmapBlock(std::byte* view) override;
  void dropBlock(BlockHandle block) override;

  /// Nothing else is dispatched on this thread meanwhile. A window that hangs costs the whole
  /// time-out.
  SendResult sendMessage(WindowHandle window, MessageId message, AtomId atom,
                         int timeout_ms) override;
  void showWindow(WindowHandle window, bool maximised) override;
  void bringToFront(WindowHandle window) override;

  std::uint32_t processId() override;

 private:
  bool refused_ = false;  ///< the last message was, for want of rights
};

}  // namespace vorlent
