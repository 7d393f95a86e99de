#pragma once

#include <poll.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <list>
#include <optional>
#include <string>
#include <vector>

#include "platform/StickDevice.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/WindowSocket.h"

namespace vorlent {

/// A virtual stick as a socket in a folder. Whoever connects is sent the state, and again whenever
/// it changes; who reads too slowly gets the last state when there is room again.
class SocketStickDevice : public StickDevice {
 public:
  /// Lines come from `input`, a descriptor that the caller owns; -1 for no lines. The end comes
  /// when `ended` is no longer 0. Raises as WindowSocket does.
  SocketStickDevice(const std::string& folder, const std::string& name, int input,
                    const volatile std::sig_atomic_t& ended);

  void show(const ControllerState& state) override;
  bool pause(int duration_ms) override;
  bool awaitReader() override;
  std::optional<std::string> nextLine() override;

  std::size_t readers() const { return readers_.size(); }

 private:
  using Clock = std::chrono::steady_clock;
  struct Reader {
    Descriptor socket;
    bool behind = true;  ///< the present state has not been sent
  };

  /// Waits for one event or until `end`; with `input`, for something to read there, too.
  void serveOnce(std::optional<Clock::time_point> end, bool withInput);
  void watch(bool withInput);
  void accept();
  /// False when the reader has gone.
  bool attend(Reader& reader, short events);
  /// False when the reader has gone.
  bool send(Reader& reader) const;
  void readInput();
  std::optional<std::string> takeLine();

  WindowSocket window_;
  int input_;
  const volatile std::sig_atomic_t& ended_;
  ControllerState state_;
  std::list<Reader> readers_;
  std::vector<pollfd> watched_;  ///< the window, the readers in their order, and the input
  std::string pending_;          ///< of the input
  bool inputEnded_ = false;
};

}  // namespace vorlent
