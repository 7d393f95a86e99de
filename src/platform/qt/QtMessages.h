#pragma once

#include <functional>
#include <string_view>

namespace vorlent {

/// While it lives, the warnings of Qt go where it says, in place of standard error, which waits for
/// its reader. What ends the process is still written there first. One at a time in a process.
class QtMessages {
 public:
  /// Gets a line with its line feed, from whichever thread has something to say.
  using Write = std::function<void(std::string_view line)>;

  explicit QtMessages(Write write);
  ~QtMessages();
  QtMessages(const QtMessages&) = delete;
  QtMessages& operator=(const QtMessages&) = delete;
};

}  // namespace vorlent
