#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/RequestListener.h"

namespace vorlent {

/// Hidden top-level windows. A message's first parameter is the atom that names the block; the
/// message's result is the answer.
class WindowListener : public RequestListener {
 public:
  /// All windows live on the thread that makes them, which is the one that calls serve().
  WindowListener(const std::vector<std::string>& windowClasses, BlockServer server);
  ~WindowListener() override;
  WindowListener(const WindowListener&) = delete;
  WindowListener& operator=(const WindowListener&) = delete;

  void serve(int duration_ms) override;

  /// The answer to one message with this atom.
  std::int32_t answer(std::uint16_t atom);

  /// Closing a window is how taskkill and the task manager ask a program to end. The windows stay
  /// until it does: without them it would run on where nobody reaches it.
  void endProgram();

 private:
  class Window;

  BlockServer server_;
  std::vector<std::unique_ptr<Window>> windows_;
  bool ending_ = false;
};

}  // namespace vorlent
