#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vorlent {

/// The way to whoever writes a recording. Nothing here waits, but end().
class RecorderLink {
 public:
  virtual ~RecorderLink() = default;
  /// How many of the bytes it has taken, from the first on.
  virtual std::size_t send(std::string_view bytes) = 0;
  /// Nobody is there any more who would take any.
  virtual bool lost() = 0;
  /// What the operator should know and was not told yet, in a sentence.
  virtual std::optional<std::string> news() = 0;
  /// Gives the rest, and has the recording finished; waits at most two seconds for it.
  virtual void end(std::string_view rest) = 0;
};

}  // namespace vorlent
