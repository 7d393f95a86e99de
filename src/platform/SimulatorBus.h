#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace vorlent {

/// Handles are 0 when there is nothing behind them.
using WindowHandle = std::intptr_t;
using MessageId = std::uint32_t;
using AtomId = std::uint32_t;
using BlockHandle = std::intptr_t;

struct SendResult {
  bool answered = false;
  std::int32_t reply = 0;
  std::uint32_t lastError = 0;  ///< 0 for a time-out, otherwise the system's error number
};

struct BlockResult {
  BlockHandle block = 0;
  bool alreadyExists = false;
};

/// What the simulator transport needs of the operating system.
class SimulatorBus {
 public:
  virtual ~SimulatorBus() = default;

  /// The top-level window of this class.
  virtual WindowHandle findWindow(const std::string& windowClass) = 0;
  /// Why no window can be found here, whoever runs, or why the last block could not be made; empty
  /// when nothing stands in the way.
  virtual std::string obstacle() { return {}; }
  virtual MessageId registerMessage(const std::string& text) = 0;
  virtual AtomId addAtom(const std::string& text) = 0;
  virtual void deleteAtom(AtomId atom) = 0;

  /// Makes a block of shared memory; a name that is taken gives alreadyExists.
  virtual BlockResult createBlock(const std::string& name, std::size_t size_bytes) = 0;
  /// Its memory in this process, or nullptr.
  virtual std::byte* mapBlock(BlockHandle block) = 0;
  /// False when memory was gone that was read or written there: what was read is worth nothing.
  virtual bool isIntact(const std::byte* /*view*/) { return true; }
  virtual void unmapBlock(std::byte* view) = 0;
  /// Drops the block and its name.
  virtual void dropBlock(BlockHandle block) = 0;

  /// Waits for the answer, at most `timeout_ms`; events wait meanwhile.
  virtual SendResult sendMessage(WindowHandle window, MessageId message, AtomId atom,
                                 int timeout_ms) = 0;
  virtual void showWindow(WindowHandle window, bool maximised) = 0;
  virtual void bringToFront(WindowHandle window) = 0;

  virtual std::uint32_t processId() = 0;
};

}  // namespace vorlent
