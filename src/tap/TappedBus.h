#pragma once

#include <cstddef>
#include <memory>
#include <set>
#include <string>

#include "platform/SimulatorBus.h"
#include "recording/Event.h"
#include "tap/Tap.h"

namespace vorlent {

class TappedBus : public SimulatorBus {
 public:
  TappedBus(SimulatorBus& inner, Tap& tap) : inner_(inner), tap_(tap) {}

  WindowHandle findWindow(const std::string& windowClass) override;
  std::string obstacle() override;
  MessageId registerMessage(const std::string& text) override;
  AtomId addAtom(const std::string& text) override;
  void deleteAtom(AtomId atom) override { inner_.deleteAtom(atom); }
  BlockResult createBlock(const std::string& name, std::size_t size_bytes) override;
  std::byte* mapBlock(BlockHandle block) override;
  bool isIntact(const std::byte* view) override;
  void unmapBlock(std::byte* view) override;
  void dropBlock(BlockHandle block) override { inner_.dropBlock(block); }
  SendResult sendMessage(WindowHandle window, MessageId message, AtomId atom,
                         int timeout_ms) override;
  void showWindow(WindowHandle window, bool maximised) override {
    inner_.showWindow(window, maximised);
  }
  void bringToFront(WindowHandle window) override { inner_.bringToFront(window); }
  std::uint32_t processId() override;

 private:
  recorded::Exchanged takeRequest();
  const std::shared_ptr<const recorded::Request>& shared(const recorded::Request& request);
  void takeReply(recorded::Exchanged& exchange);

  struct ByContent {
    using is_transparent = void;
    static const recorded::Request& content(const recorded::Request& request) { return request; }
    static const recorded::Request& content(const std::shared_ptr<const recorded::Request>& it) {
      return *it;
    }
    bool operator()(const auto& a, const auto& b) const { return content(a) < content(b); }
  };

  SimulatorBus& inner_;
  Tap& tap_;
  std::byte* view_ = nullptr;
  std::size_t size_bytes_ = 0;
  recorded::Request request_;  ///< the one that is being sent
  std::string sent_;           ///< the records of the request, as they stood in the block
  std::string reply_;          ///< as far as they reached
  /// Those that there were, so that equal ones are shared.
  std::set<std::shared_ptr<const recorded::Request>, ByContent> requests_;
  std::shared_ptr<const recorded::Request> last_;  ///< of them; mostly the next is the same
};

}  // namespace vorlent
