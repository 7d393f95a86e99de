#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vorlent {

/// The way between this helper and the server that started it: events come on standard input.
class ServerPipe {
 public:
  virtual ~ServerPipe() = default;
  /// What came within so long, or within any time; empty when nothing did. Valid until the next
  /// call. Nothing when the server has gone.
  virtual std::optional<std::string_view> read(std::optional<std::int64_t> longest_ms) = 0;
  /// A sentence for the operator.
  virtual void tell(const std::string& sentence) = 0;
};

/// From then on the end of the server is the end of its events: what asks programs to go does not
/// end this one before. One source file for each operating system.
std::unique_ptr<ServerPipe> pipeFromServer();

}  // namespace vorlent
