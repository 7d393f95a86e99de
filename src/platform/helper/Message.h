#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorlent {

/// What a program and its helper tell each other: a few texts, of any bytes. On the wire it is the
/// length of what follows, then for each text its length and its bytes; a length is 32 bits, little
/// endian.
using Message = std::vector<std::string>;
using MessageLength = std::uint32_t;

/// The bytes of a message with the length in front.
std::string packed(const Message& message);
/// The texts of a message's bytes, without the length in front; nothing when they do not fit.
std::optional<Message> unpacked(std::string_view bytes);

struct HelperAnswer {
  std::optional<Message> message;
  bool late = false;     ///< the deadline passed
  bool missing = false;  ///< the helper could not be started
};

/// Asks a helper. No message when it was late, or crashed, or gave an answer longer than that.
using AskHelper = std::function<HelperAnswer(
    const Message& question, std::chrono::milliseconds deadline, std::size_t mostOfAnAnswer_bytes)>;

}  // namespace vorlent
