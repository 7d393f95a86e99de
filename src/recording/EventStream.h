#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "recording/Event.h"

namespace vorlent {

// What a frame of the stream holds, by the byte behind its length.
constexpr char EventFrame = 'e';
constexpr char RequestFrame = 'r';

/// Reads what an EventQueue sends, in pieces as they come.
class EventStream {
 public:
  void add(std::string_view bytes) { bytes_ += bytes; }
  /// Nothing while the next is not there as a whole. Raises RuntimeError InputPastEnd for what no
  /// EventQueue has sent.
  std::optional<recorded::Event> next();

 private:
  std::optional<std::string_view> nextFrame();

  std::string bytes_;
  std::size_t read_ = 0;  ///< of them
  std::map<std::uint64_t, std::shared_ptr<const recorded::Request>> requests_;
  std::int64_t last_us_ = 0;
};

}  // namespace vorlent
