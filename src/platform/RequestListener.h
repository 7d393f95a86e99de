#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace vorlent {

/// Carries out the requests in a client's shared block and gives the answer to its message.
using BlockServer = std::function<std::int32_t(std::span<std::byte> block)>;

/// The simulator's end of the interface: windows that clients find by class and send the registered
/// message "FSASMLIB:IPC" to. A request whose block cannot be opened is answered with 0.
class RequestListener {
 public:
  static constexpr std::size_t BlockSize = 32768;

  /// Takes the windows away.
  virtual ~RequestListener() = default;
  /// Answers what comes in within about `duration_ms`. A signal can end it early.
  virtual void serve(int duration_ms) = 0;
  /// From now on serve() also ends as soon as this descriptor can be read, where the system can
  /// wait for both. It must stay open; -1 is none.
  virtual void endWhenReadable(int /*descriptor*/) {}
};

/// Raises RuntimeError with a plain description when another simulator has one of the windows, or
/// they cannot be made.
std::unique_ptr<RequestListener> listenForRequests(const std::vector<std::string>& windowClasses,
                                                   BlockServer server);

}  // namespace vorlent
