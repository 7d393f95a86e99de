#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/SimulatorBus.h"
#include "platform/linux/SimulatorConnection.h"

namespace vorlent {

/// The simulator interface between two processes on Linux: windows are Unix sockets in busFolder(),
/// blocks are POSIX shared memory. Error numbers are errno's.
class UnixSimulatorBus : public SimulatorBus {
 public:
  UnixSimulatorBus() = default;
  /// Drops what is still there.
  ~UnixSimulatorBus() override;
  UnixSimulatorBus(const UnixSimulatorBus&) = delete;
  UnixSimulatorBus& operator=(const UnixSimulatorBus&) = delete;

  /// A class that has been found already, and whose simulator still holds the connection, gives
  /// the handle that it has. Once it has gone, another search gives another handle.
  WindowHandle findWindow(const std::string& windowClass) override;
  std::string obstacle() override;
  /// Texts with a line feed cannot be sent: 0, as for an empty one.
  MessageId registerMessage(const std::string& text) override;
  AtomId addAtom(const std::string& text) override;
  void deleteAtom(AtomId atom) override;

  /// A name in use is taken over when it holds this process's number and no block of this process
  /// has it: an earlier process of the same number left it behind.
  BlockResult createBlock(const std::string& name, std::size_t size_bytes) override;
  std::byte* mapBlock(BlockHandle block) override;
  bool isIntact(const std::byte* view) override;
  void unmapBlock(std::byte* view) override;
  void dropBlock(BlockHandle block) override;

  SendResult sendMessage(WindowHandle window, MessageId message, AtomId atom,
                         int timeout_ms) override;
  /// There are no windows here: nothing happens.
  void showWindow(WindowHandle window, bool maximised) override;
  void bringToFront(WindowHandle window) override;

  std::uint32_t processId() override;

 private:
  struct Window {
    std::string windowClass;
    std::unique_ptr<SimulatorConnection> connection;
  };
  struct Block {
    std::string name;  ///< as shm_open() takes it
    Descriptor memory;
    std::size_t size_bytes;
  };

  static std::uint32_t addText(std::map<std::uint32_t, std::string>& texts,
                               const std::string& text);
  static void unlinkName(const std::string& sharedName);

  std::map<WindowHandle, Window> windows_;
  std::map<MessageId, std::string> messages_;
  std::map<AtomId, std::string> atoms_;
  std::map<BlockHandle, Block> blocks_;
  std::map<std::byte*, std::size_t> views_;
  std::string foreignBlock_;  ///< that kept the last one from being made
  WindowHandle lastWindow_ = 0;
  BlockHandle lastBlock_ = 0;
};

}  // namespace vorlent
