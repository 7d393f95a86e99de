#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/qt/InputBytes.h"

namespace vorlent {

/// Lines from a terminal, pipe or file, delivered through the event loop of the program's
/// QCoreApplication. A handler may pump events: lines that came meanwhile are then delivered in
/// their order, inside it.
class StandardInput {
 public:
  /// A line comes without its line end; what stands behind the last line end is a line too. Of a
  /// line that is longer than the longest its beginning comes.
  using LineHandler = std::function<void(const std::string& line)>;
  static constexpr std::size_t LongestLine_bytes = 65536;

  /// `onEnd` is called once, behind the last line. Neither handler may let an exception out.
  StandardInput(LineHandler onLine, std::function<void()> onEnd, int descriptor = 0);

 private:
  void take(std::string_view bytes);
  void deliverLines();
  void finish();

  LineHandler onLine_;
  std::function<void()> onEnd_;
  std::string pending_;
  std::unique_ptr<InputBytes> bytes_;
};

}  // namespace vorlent
