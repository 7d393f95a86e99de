#pragma once

#include <functional>
#include <memory>
#include <string_view>

namespace vorlent {

/// Reads a descriptor of the program for as long as it lives.
class InputBytes {
 public:
  /// Gets what came, in UTF-8; an empty view at the end, once. May not let an exception out.
  using Handler = std::function<void(std::string_view bytes)>;

  virtual ~InputBytes() = default;
};

/// Delivers through the event loop of the program's QCoreApplication.
std::unique_ptr<InputBytes> readInput(int descriptor, InputBytes::Handler handler);

}  // namespace vorlent
