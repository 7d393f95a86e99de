#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/SimulatorBus.h"
#include "recording/Event.h"
#include "replay/WriteComparison.h"
#include "simulator/OffsetMemory.h"

namespace vorlent {

class Tape;

/// The simulator as it was recorded. A request is answered with the bytes that it got then; one
/// that was not made then, with the last ones that were seen there. What is written goes into the
/// comparison alone.
class ReplayBus : public SimulatorBus {
 public:
  ReplayBus(Tape& tape, WriteComparison& writes) : tape_(tape), writes_(writes) {}

  WindowHandle findWindow(const std::string& windowClass) override;
  std::string obstacle() override;
  MessageId registerMessage(const std::string& text) override;
  AtomId addAtom(const std::string& text) override;
  void deleteAtom(AtomId) override {}
  BlockResult createBlock(const std::string& name, std::size_t size_bytes) override;
  std::byte* mapBlock(BlockHandle block) override;
  bool isIntact(const std::byte* view) override;
  void unmapBlock(std::byte*) override {}
  void dropBlock(BlockHandle) override {}
  SendResult sendMessage(WindowHandle window, MessageId message, AtomId atom,
                         int timeout_ms) override;
  void showWindow(WindowHandle, bool) override {}
  void bringToFront(WindowHandle) override {}
  std::uint32_t processId() override;

  /// A poll has been answered since this was asked last.
  bool takePolled() { return std::exchange(polled_, false); }

 private:
  struct Sent {
    recorded::Request request;
    std::string written;
    std::vector<std::size_t> readPlaces;  ///< in the block, of the bytes of each read
  };

  Sent sentRequest() const;
  bool skipTo(const recorded::Request& request);
  SendResult answerAsThen(const Sent& sent);
  SendResult answerByItself(const Sent& sent);
  void takeOver(const recorded::Exchanged& then);

  Tape& tape_;
  WriteComparison& writes_;
  std::vector<std::byte> block_;
  OffsetMemory image_;  ///< what was last seen at each offset
  bool polled_ = false;
};

}  // namespace vorlent
